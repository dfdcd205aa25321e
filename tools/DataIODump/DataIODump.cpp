// DataIODump: prints what an output container holds, like ncdump does for netCDF files.
// By default the header fields, the number of time points, the values per time point and the
// data format; with --data one line per time point (time point and values separated by single
// blanks, numbers in shortest round-trip form, gaps as "nan"); --time-index=N limits that to one
// time point. Foreign files that a data file reader takes (CSV tables, logger exports, climate
// and statistics files) are read with that reader and printed with their data sets; when they
// have a start year, each data line begins with the date and time of its time point.
// A file that cannot be read prints the whole error chain to standard error and exits with 1;
// warnings of the reader (e.g. a last line without line end that is not read) go to standard
// error as well.

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>

#include <ZEB_ArgParser.h>
#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_StringUtils.h>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>
#include <DATAIO_NumberText.h>

#include <OVP_DateTimeText.h>
#include <OVP_FileReaderRegistry.h>

namespace {

/*! Writes messages to standard error, so that they never mix with the dump on standard output. */
class StandardErrorMessages : public ZEB::MessageHandler {
public:
	void writeConsole(const std::string & text, ZEB::MsgType) override {
		std::cerr << text;
	}
};

/*! Prints one "Name: value" line with the value in a common column. */
void printField(const std::string & name, const std::string & value) {
	std::string line = name + ":";
	line.resize(std::max<std::size_t>(line.size() + 1, 24), ' ');
	std::cout << line << value << '\n';
}

/*! The element/side numbers as blank-separated text. */
std::string numbersText(const std::vector<std::uint32_t> & nums) {
	std::string text;
	for (std::uint32_t n : nums) {
		if (!text.empty())
			text += ' ';
		DATAIO::NumberText::appendInteger(text, n);
	}
	return text;
}

/*! Prints the header fields, counts and data format. */
void printHeader(const DATAIO::DataIO & dio) {
	const bool preV6 = dio.majorFileVersion() < DATAIO::DataIO::MAJOR_FILE_VERSION;
	printField("File", dio.filename());
	printField("Variant", std::string(dio.isBinary() ? "binary" : "ASCII") + ", generation " +
			   (preV6 ? "5" : "6") + ", version " + std::to_string(dio.majorFileVersion()) + "." +
			   std::to_string(dio.minorFileVersion()));
	printField("TYPE", DATAIO::DataIO::outputTypeKeyword(dio.type()));
	printField("PROJECT_FILE", dio.projectFileName());
	printField("CREATED", dio.createdTime());
	if (!preV6) {
		printField("GEO_FILE", dio.geoFileName());
		printField("GEO_FILE_HASH", std::to_string(dio.geoFileHash()));
	}
	printField("QUANTITY", dio.quantity());
	printField("QUANTITY_KW", dio.quantityKeyword());
	printField("SPACE_TYPE", DATAIO::DataIO::spaceTypeKeyword(dio.spaceType()));
	printField("TIME_TYPE", DATAIO::DataIO::timeTypeKeyword(dio.timeType()));
	printField("VALUE_UNIT", dio.valueUnit());
	printField("TIME_UNIT", dio.timeUnit());
	printField("START_YEAR", std::to_string(dio.startYear()));
	const char * numsKeyword = !preV6 ? "INDICES" : dio.type() == DATAIO::DataIO::T_FLUX ? "SIDES" : "ELEMENTS";
	printField(numsKeyword, numbersText(dio.nums()));
	if (dio.geometry() != nullptr)
		printField("Embedded geometry", std::to_string(dio.geometry()->materials().size()) + " materials, " +
				   std::to_string(dio.geometry()->elements().size()) + " elements, " +
				   std::to_string(dio.geometry()->sides().size()) + " sides");
	printField("Time points", std::to_string(dio.timePoints().size()));
	printField("Values per time point", std::to_string(dio.nValues()));
	if (dio.dataFormat() == DATAIO::DataIO::NUM_DF)
		printField("Data format", "undetermined (needs a geometry file, give it with --geometry=FILE)");
	else
		printField("Data format", DATAIO::DataIO::dataFormatText(dio.dataFormat()));
}

/*! Prints the header of a container a data file reader filled: its data sets with quantity and unit. */
void printForeignHeader(const DATAIO::DataIO & dio, const OVP::FileReader & reader) {
	printField("File", dio.filename());
	printField("Reader", reader.name());
	printField("QUANTITY", dio.quantity());
	if (!dio.description().empty()) {
		// continuation lines in the value column
		std::string text;
		for (char c : dio.description())
			text += c == '\n' ? std::string("\n") + std::string(24, ' ') : std::string(1, c);
		printField("Description", text);
	}
	printField("TIME_UNIT", dio.timeUnit());
	printField("START_YEAR", dio.startYear() == DATAIO::DataIO::UNSET_START_YEAR ? std::string("none")
																				  : std::to_string(dio.startYear()));
	for (std::size_t i = 0; i < dio.nums().size(); ++i)
		printField("Data set " + std::to_string(i + 1), dio.columnQuantity(i) + " [" + dio.columnUnit(i) + "]");
	printField("Time points", std::to_string(dio.timePoints().size()));
}

/*! Appends one data line: the time point and the values, separated by single blanks; with a
	start year the date and time come first.
*/
void appendDataLine(std::string & out, double t, const double * values, unsigned int n, int startYear) {
	if (startYear != DATAIO::DataIO::UNSET_START_YEAR)
		out += OVP::DateTimeText::format(startYear, t) + ' ';
	DATAIO::NumberText::appendDouble(out, t);
	for (unsigned int i = 0; i < n; ++i) {
		out += ' ';
		DATAIO::NumberText::appendDouble(out, values[i]);
	}
	out += '\n';
}

/*! Prints the data lines of all time points, or of one. */
void printData(DATAIO::DataIO & dio, bool oneIndex, unsigned int timeIndex, int startYear) {
	const std::vector<double> & tp = dio.timePoints();
	const unsigned int n = dio.nValues();
	std::string out;
	if (oneIndex) {
		appendDataLine(out, dio.timePoints().at(timeIndex), dio.data(timeIndex), n, startYear);
		std::fwrite(out.data(), 1, out.size(), stdout);
		return;
	}
	if (tp.empty())
		return;
	// increasing time points allow loading everything in one pass; otherwise go time point by time point
	bool increasing = true;
	for (std::size_t t = 1; t < tp.size() && increasing; ++t)
		increasing = tp[t] > tp[t - 1];
	const double * all = increasing ? dio.dataVector() : nullptr;
	for (std::size_t t = 0; t < tp.size(); ++t) {
		const double * values = all != nullptr ? all + t*n : dio.data(static_cast<unsigned int>(t));
		appendDataLine(out, tp[t], values, n, startYear);
		if (out.size() > (1u << 20)) {
			std::fwrite(out.data(), 1, out.size(), stdout);
			out.clear();
		}
	}
	std::fwrite(out.data(), 1, out.size(), stdout);
}

} // namespace


int main(int argc, char * argv[]) {
	FUNCID(DataIODump::main);
	StandardErrorMessages messages;
	ZEB::MessageHandler::setCurrent(&messages);
	try {
		ZEB::ArgParser args;
		args.setProgramName("DataIODump");
		args.setVersion("1.0");
		args.setArgumentsHint("FILE");
		args.addOption("geometry", "Geometry file used to determine the data format of field and flux outputs.", "FILE");
		args.addFlag("data", "Also print one line per time point: the time point and its values.");
		args.addOption("time-index", "Print the data line of this time point only (implies --data).", "N");
		args.parse(argc, argv);
		if (args.handleDefaultFlags())
			return 0;
		if (args.args().size() != 1) {
			std::cerr << "Expected exactly one output file name; see --help.\n";
			return 2;
		}

		bool oneIndex = args.hasOption("time-index");
		unsigned int timeIndex = 0;
		if (oneIndex)
			timeIndex = ZEB::string2val<unsigned int>(args.value("time-index"));

		DATAIO::DataIO dio;
		const std::string fileName = args.args().front();
		const OVP::FileReader * reader = OVP::FileReaderRegistry::instance().readerFor(fileName);
		if (reader != nullptr)
			reader->read(fileName, dio);
		else
			dio.read(fileName);
		if (dio.dataFormat() == DATAIO::DataIO::NUM_DF && args.hasOption("geometry")) {
			DATAIO::GeoFile geo;
			geo.read(args.value("geometry"));
			dio.determineDataFormat(&geo);
		}
		if (oneIndex && timeIndex >= dio.timePoints().size())
			throw ZEB::Exception(ZEB::MessageFormat("Time index %1 out of range, the file has %2 time points.")
								 .arg(timeIndex).arg(static_cast<unsigned long>(dio.timePoints().size())), FUNC_ID);
		if (reader != nullptr)
			printForeignHeader(dio, *reader);
		else
			printHeader(dio);
		std::cout.flush();
		// dates for foreign files only: the simulation program's files are printed as they are
		const bool dates = reader != nullptr && dio.timeUnit() == "s";
		if (args.flagEnabled("data") || oneIndex)
			printData(dio, oneIndex, timeIndex, dates ? dio.startYear() : DATAIO::DataIO::UNSET_START_YEAR);
		std::fflush(stdout);
		return 0;
	}
	catch (ZEB::Exception & ex) {
		std::cout.flush();
		std::fflush(stdout);
		std::cerr << ex.msgWithOrigin();
		return 1;
	}
	catch (std::exception & ex) {
		std::cerr << ex.what() << '\n';
		return 1;
	}
}
