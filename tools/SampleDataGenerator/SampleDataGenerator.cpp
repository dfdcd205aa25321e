// SampleDataGenerator: writes the result set of one simulation run (a 1D wall and a 2D wall
// corner under two years of hourly climate) into a directory, for demonstrations, tests and
// benchmarks. All options are --name=value; the same options give the same files. See
// docs/sample-data.md for the files and their contents.

#include <iostream>
#include <string>

#include <ZEB_ArgParser.h>
#include <ZEB_Exception.h>
#include <ZEB_StringUtils.h>

#include "SD_Climate.h"
#include "SD_SampleDataSet.h"

namespace {

/*! The value of a numeric option; a text that is no number of that type throws. */
template <typename T>
T numberOption(const ZEB::ArgParser & args, const std::string & name) {
	FUNCID(SampleDataGenerator::numberOption);
	try {
		return ZEB::string2val<T>(args.value(name));
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Invalid value '" + args.value(name) + "' of option --" + name + ".", FUNC_ID);
	}
}

} // namespace


int main(int argc, char * argv[]) {
	try {
		SD::SampleDataSet::Options options;
		ZEB::ArgParser args;
		args.setProgramName("SampleDataGenerator");
		args.setVersion("1.0");
		args.addOption("dir", "Directory the files are written into (created when missing).", "DIR", options.m_directory);
		args.addOption("seed", "Seed of the weather noise.", "N", std::to_string(options.m_seed));
		args.addOption("years", "Length of the simulated period in years of 365 days.", "N", "2");
		args.addOption("hours", "Length of the simulated period in hours (instead of --years), e.g. for small test files.", "N");
		args.addOption("elements", "Number of elements of the 1D wall (at least 9).", "N", std::to_string(options.m_wallElements));
		args.addOption("detail-cells", "Grid cells per direction of the 2D corner detail (at least 6).", "N",
					   std::to_string(options.m_detailCells));
		args.addOption("detail-step", "Hours between two records of the corner temperature field and heat flux.", "N",
					   std::to_string(options.m_detailStep));
		args.addOption("start-year", "START_YEAR written into the output files.", "YEAR", std::to_string(options.m_startYear));
		args.addOption("only", "Write only these files: comma-separated file names (wall_temperature.s6o) or output "
					   "names (wall_temperature: all its files).", "NAMES");
		args.parse(argc, argv);
		if (args.handleDefaultFlags())
			return 0;
		if (!args.args().empty()) {
			std::cerr << "Unexpected argument '" << args.args().front() << "'; see --help.\n";
			return 2;
		}
		options.m_directory = args.value("dir");
		options.m_seed = numberOption<unsigned long long>(args, "seed");
		if (args.hasOption("hours"))
			options.m_hours = numberOption<unsigned long long>(args, "hours");
		else
			options.m_hours = numberOption<unsigned int>(args, "years")*SD::Climate::HOURS_PER_YEAR;
		options.m_wallElements = numberOption<unsigned int>(args, "elements");
		options.m_detailCells = numberOption<unsigned int>(args, "detail-cells");
		options.m_detailStep = numberOption<unsigned int>(args, "detail-step");
		options.m_startYear = numberOption<int>(args, "start-year");
		if (args.hasOption("only"))
			for (const std::string & name : ZEB::explode(args.value("only"), ','))
				if (!ZEB::trimmed(name).empty())
					options.m_only.push_back(ZEB::trimmed(name));

		SD::SampleDataSet set(options);
		unsigned long long total = 0;
		for (const SD::SampleDataSet::WrittenFile & f : set.write()) {
			std::cout << options.m_directory << "/" << f.m_name << "\t" << f.m_size << " bytes\n";
			total += f.m_size;
		}
		std::cout << "Total\t" << total << " bytes\n";
		return 0;
	}
	catch (ZEB::Exception & ex) {
		std::cerr << ex.msgWithOrigin();
		return 1;
	}
	catch (std::exception & ex) {
		std::cerr << ex.what() << '\n';
		return 1;
	}
}
