// DataIOConvert: converts a field or flux output (with its geometry) to a Tecplot ASCII data file,
// or cuts a slice of it into a new output file in the simulation program's own format:
//   DataIOConvert tecplot IN OUT.dat [--from=I] [--to=I]
//   DataIOConvert history IN OUT --element=N
//   DataIOConvert profile IN OUT --direction=x|y|z --element=N (--time=I | --all-times)
// Time points are given by their index, counted from 0 as DataIODump --time-index does.
// A failure prints the whole error chain to standard error and exits with 1 (2 for a wrong
// command line); no partial output file is left behind.

#include <iostream>
#include <string>

#include <QString>

#include <ZEB_ArgParser.h>
#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_StringUtils.h>

#include <OVP_FieldOutputFile.h>
#include <OVP_SliceWriter.h>
#include <OVP_TecplotConverter.h>

namespace {

/*! Writes messages to standard error, so that they never mix with the program's output. */
class StandardErrorMessages : public ZEB::MessageHandler {
public:
	void writeConsole(const std::string & text, ZEB::MsgType) override {
		std::cerr << text;
	}
};

const char * const COMMANDS_HELP =
	"Commands:\n"
	"  tecplot IN OUT [--from=I] [--to=I]\n"
	"      Writes the output IN on its grid as Tecplot ASCII data file OUT, one zone per time\n"
	"      point (all, or the indexes I to I): the element values of a field output, the flux\n"
	"      vectors per element of a flux output of a 2D grid, the flux at each side of a flux\n"
	"      output of a 1D grid.\n"
	"  history IN OUT --element=N\n"
	"      Writes the values of element N at every time point as a new output file.\n"
	"  profile IN OUT --direction=x|y|z --element=N (--time=I | --all-times)\n"
	"      Writes the values along the grid line through element N in the direction, at time\n"
	"      point index I or at all time points, as a new output file.\n"
	"For a flux output of a 1D grid, N is a side number; fluxes of larger grids have no slices.\n"
	"Time points are given by their index, counted from 0.\n";

/*! A wrong command line: the message goes to standard error and the program exits with 2. */
struct UsageError {
	std::string m_message;
};

/*! The value of an unsigned option. */
unsigned int indexOption(const ZEB::ArgParser & args, const std::string & name) {
	try {
		return ZEB::string2val<unsigned int>(args.value(name));
	}
	catch (ZEB::Exception &) {
		throw UsageError{ "--" + name + " needs a number counted from 0, not '" + args.value(name) + "'." };
	}
}

/*! The value of an option that the command requires. */
unsigned int requiredIndex(const ZEB::ArgParser & args, const std::string & name) {
	if (!args.hasOption(name))
		throw UsageError{ "The command needs --" + name + "=N." };
	return indexOption(args, name);
}

/*! Runs the command of the parsed command line. */
void run(const ZEB::ArgParser & args) {
	const std::string & command = args.args()[0];
	const QString input = QString::fromLocal8Bit(args.args()[1].c_str());
	const QString output = QString::fromLocal8Bit(args.args()[2].c_str());
	if (command != "tecplot" && command != "history" && command != "profile")
		throw UsageError{ "Unknown command '" + command + "'; see --help." };
	unsigned int direction = 0;
	if (command == "profile") {
		const std::string name = args.value("direction");
		direction = name == "x" ? 0u : name == "y" ? 1u : name == "z" ? 2u : 3u;
		if (direction == 3)
			throw UsageError{ "The profile command needs --direction=x, y or z." };
		if (args.hasOption("time") == args.flagEnabled("all-times"))
			throw UsageError{ "The profile command needs either --time=I or --all-times." };
	}

	OVP::FieldOutputFile file(input);
	if (command == "tecplot") {
		OVP::TecplotConverter converter(file);
		const std::size_t count = file.dataIO().timePoints().size();
		if (args.hasOption("from") || args.hasOption("to"))
			converter.setTimeRange(args.hasOption("from") ? indexOption(args, "from") : 0,
								   args.hasOption("to") ? indexOption(args, "to") : static_cast<unsigned int>(count - 1));
		converter.write(output);
	}
	else if (command == "history")
		OVP::SliceWriter(file).writeHistory(requiredIndex(args, "element"), output);
	else {
		const unsigned int time = args.flagEnabled("all-times") ? OVP::SliceWriter::ALL_TIMES : indexOption(args, "time");
		OVP::SliceWriter(file).writeProfile(requiredIndex(args, "element"), direction, time, output);
	}
	std::cout << "Wrote '" << output.toStdString() << "'.\n";
}

} // namespace


int main(int argc, char * argv[]) {
	StandardErrorMessages messages;
	// warnings and errors only, not the extractors' progress lines
	messages.setConsoleVerbosityLevel(1);
	ZEB::MessageHandler::setCurrent(&messages);
	ZEB::ArgParser args;
	try {
		args.setProgramName("DataIOConvert");
		args.setVersion("1.0");
		args.setArgumentsHint("COMMAND IN OUT");
		args.addOption("from", "tecplot: first time point index to write (default 0).", "I");
		args.addOption("to", "tecplot: last time point index to write (default the last one).", "I");
		args.addOption("element", "history, profile: the element (of a flux output: the side) the cut goes through.", "N");
		args.addOption("direction", "profile: the direction of the grid line.", "x|y|z");
		args.addOption("time", "profile: the time point index of the profile.", "I");
		args.addFlag("all-times", "profile: the profile at every time point.");
		try {
			args.parse(argc, argv);
		}
		catch (ZEB::Exception & ex) {
			throw UsageError{ ex.what() };
		}
		if (args.flagEnabled("help")) {
			args.printHelp(std::cout);
			std::cout << '\n' << COMMANDS_HELP;
			return 0;
		}
		if (args.handleDefaultFlags())
			return 0;
		if (args.args().size() != 3)
			throw UsageError{ "Expected a command, an input and an output file; see --help." };
		run(args);
		return 0;
	}
	catch (UsageError & error) {
		std::cerr << error.m_message << '\n';
		return 2;
	}
	catch (ZEB::Exception & ex) {
		std::cerr << ex.msgWithOrigin();
		return 1;
	}
}
