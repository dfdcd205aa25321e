#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include <ZEB_ArgParser.h>
#include <ZEB_Exception.h>

#include "ZEB_TestSupport.h"

using ZEB::ArgParser;

namespace {

const char * const LANG_HELP = "Specify the program language using a 2 character language ID.";
const char * const CHART_HELP = "Export chart #n, with dimensions 'width x height' and filename fn like 'diagram1.pdf'.";
const char * const CHARTS_HELP = "Exports several charts using export specs from given file.";

/*! A parser set up with the options the application registers at start-up. */
void setUpApplicationOptions(ArgParser & parser) {
	parser.setProgramName("OrvaneApp");
	parser.setVersion("2.1.0");
	parser.setArgumentsHint("[project file]");
	parser.addFlag("no-splash", "Disables splash screen.");
	parser.addOption("lang", LANG_HELP, "en;de;it;...", "en");
	parser.addOption("generate-chart", CHART_HELP, "n:bxh:fn");
	parser.addOption("generate-charts", CHARTS_HELP, "exportSpecsFile");
}

/*! Indentation of the help text lines. */
const char * const HELP_INDENT_TEXT = "      ";

/*! Runs of white space collapsed to one blank, so that the help can be searched by words. */
std::string collapsed(const std::string & text) {
	std::istringstream in(text);
	std::string word;
	std::string out;
	while (in >> word)
		out += (out.empty() ? "" : " ") + word;
	return out;
}

} // namespace


TEST(ZEBArgParser, OptionsFlagsAndPositionalArguments) {
	ArgParser parser;
	setUpApplicationOptions(parser);
	parser.parse({"/opt/orvane/OrvaneApp", "--lang=de", "project.o2", "--no-splash", "second.o2",
				  "--generate-chart=2:800x600:a=b.png", "-"});
	EXPECT_EQ(parser.value("lang"), "de");
	EXPECT_TRUE(parser.hasOption("no-splash"));
	EXPECT_TRUE(parser.flagEnabled("no-splash"));
	EXPECT_EQ(parser.value("no-splash"), "true");
	EXPECT_EQ(parser.value("generate-chart"), "2:800x600:a=b.png");
	EXPECT_FALSE(parser.hasOption("generate-charts"));
	EXPECT_EQ(parser.value("generate-charts"), "");
	EXPECT_EQ(parser.args(), std::vector<std::string>({"project.o2", "second.o2", "-"}));
	EXPECT_EQ(parser.executable(), "/opt/orvane/OrvaneApp");
	EXPECT_FALSE(parser.handleDefaultFlags());

	// defaults; flag values are taken exactly as written
	parser.parse({"OrvaneApp", "--no-splash=TRUE", "--lang="});
	EXPECT_EQ(parser.value("no-splash"), "TRUE");
	EXPECT_FALSE(parser.flagEnabled("no-splash"));
	EXPECT_TRUE(parser.hasOption("lang"));
	EXPECT_EQ(parser.value("lang"), "");
	EXPECT_TRUE(parser.args().empty());
	parser.parse({"OrvaneApp"});
	EXPECT_EQ(parser.value("lang"), "en");
	EXPECT_EQ(parser.value("no-splash"), "false");
	EXPECT_FALSE(parser.hasOption("lang"));

	// repeated options keep all values, the last one counts; "--" ends the options
	parser.parse({"OrvaneApp", "--lang=de", "--lang=it", "--", "--lang=fr", "-x"});
	EXPECT_EQ(parser.value("lang"), "it");
	EXPECT_EQ(parser.values("lang"), std::vector<std::string>({"de", "it"}));
	EXPECT_EQ(parser.args(), std::vector<std::string>({"--lang=fr", "-x"}));

	// argc/argv form
	const char * argv[] = {"OrvaneApp", "--generate-charts=specs.txt", "p.o2", nullptr};
	parser.parse(3, argv);
	EXPECT_EQ(parser.value("generate-charts"), "specs.txt");
	EXPECT_EQ(parser.args(), std::vector<std::string>({"p.o2"}));
}


TEST(ZEBArgParser, CommandLineErrors) {
	ArgParser parser;
	setUpApplicationOptions(parser);
	const char * const where = "[ArgParser::parse]";
	expectError([&] { parser.parse({"app", "--unknown=3"}); }, "Unknown option '--unknown'.", where);
	expectError([&] { parser.parse({"app", "--languages"}); }, "Unknown option '--languages'.", where);
	expectError([&] { parser.parse({"app", "-h"}); }, "Unknown option '-h'.", where);
	expectError([&] { parser.parse({"app", "---lang=de"}); }, "Unknown option '---lang'.", where);
	expectError([&] { parser.parse({"app", "--=de"}); }, "Unknown option '--'.", where);
	expectError([&] { parser.parse({"app", "--lang"}); }, "Missing value for option '--lang'.", where);
	// "--name value" is not a value form
	expectError([&] { parser.parse({"app", "--generate-chart", "1:800x600:a.png"}); },
				"Missing value for option '--generate-chart'.", where);

	// a failed parse leaves no results of an earlier one behind
	parser.parse({"app", "--lang=de", "p.o2"});
	expectError([&] { parser.parse({"app", "q.o2", "--bad"}); }, "Unknown option '--bad'.", where);
	EXPECT_FALSE(parser.hasOption("lang"));
	EXPECT_TRUE(parser.args().empty());

	expectError([&] { parser.addOption("lang", "again", "x"); }, "Option '--lang' is already defined.", "[ArgParser::addOption]");
	expectError([&] { parser.addFlag("help", "again"); }, "Option '--help' is already defined.", "[ArgParser::addOption]");
	for (const char * name : {"", "-x", "a=b", "a b", "\xC3\xA4"})
		expectError([&] { parser.addOption(name, "", "x"); }, std::string("Invalid option name '") + name + "'.", "[ArgParser::addOption]");
	expectError([&] { parser.value("nope"); }, "Option '--nope' is not defined.", "[ArgParser::value]");
	expectError([&] { parser.hasOption("nope"); }, "Option '--nope' is not defined.", "[ArgParser::hasOption]");
	expectError([&] { parser.values("nope"); }, "Option '--nope' is not defined.", "[ArgParser::values]");
}


TEST(ZEBArgParser, HelpListsEveryOptionInRegistrationOrder) {
	ArgParser parser;
	setUpApplicationOptions(parser);
	std::ostringstream out;
	parser.printHelp(out);
	const std::string help = out.str();
	const std::string flat = collapsed(help);

	EXPECT_EQ(help.compare(0, 41, "Usage: OrvaneApp [options] [project file]"), 0) << help;
	// each option with its value hint, help text and default, in registration order
	const std::vector<std::vector<std::string> > blocks = {
		{"--help[=<true|false>]", "Prints this help text and exits."},
		{"--version[=<true|false>]", "Prints the program version and exits."},
		{"--no-splash[=<true|false>]", "Disables splash screen.", "Default: false"},
		{"--lang=<en;de;it;...>", LANG_HELP, "Default: en"},
		{"--generate-chart=<n:bxh:fn>", CHART_HELP},
		{"--generate-charts=<exportSpecsFile>", CHARTS_HELP},
	};
	std::size_t pos = 0;
	for (const std::vector<std::string> & block : blocks)
		for (const std::string & part : block) {
			const std::size_t found = flat.find(part, pos);
			ASSERT_NE(found, std::string::npos) << "'" << part << "' missing or out of order in:\n" << help;
			pos = found + part.size();
		}
	// options without default show none
	EXPECT_EQ(flat.find("Default:", flat.find("--generate-chart=")), std::string::npos);
	// every help text stands on one line, as written
	for (const char * text : { LANG_HELP, CHART_HELP, CHARTS_HELP })
		EXPECT_NE(help.find(std::string(HELP_INDENT_TEXT) + text + "\n"), std::string::npos) << text;
}


TEST(ZEBArgParser, BuiltInHelpAndVersion) {
	ArgParser parser;
	setUpApplicationOptions(parser);
	std::ostringstream expectedHelp;
	parser.printHelp(expectedHelp);

	std::ostringstream out;
	parser.parse({"OrvaneApp", "--help", "p.o2"});
	EXPECT_TRUE(parser.handleDefaultFlags(out));
	EXPECT_EQ(out.str(), expectedHelp.str());

	out.str("");
	parser.parse({"OrvaneApp", "--version"});
	EXPECT_TRUE(parser.handleDefaultFlags(out));
	EXPECT_EQ(out.str(), "OrvaneApp 2.1.0\n");

	// help wins over version; "--help=false" asks for nothing
	out.str("");
	parser.parse({"OrvaneApp", "--version", "--help"});
	EXPECT_TRUE(parser.handleDefaultFlags(out));
	EXPECT_EQ(out.str(), expectedHelp.str());
	out.str("");
	parser.parse({"OrvaneApp", "--help=false", "--lang=de"});
	EXPECT_FALSE(parser.handleDefaultFlags(out));
	EXPECT_TRUE(out.str().empty());

	// standard output by default
	std::ostringstream captured;
	std::streambuf * old = std::cout.rdbuf(captured.rdbuf());
	parser.parse({"OrvaneApp", "--help"});
	const bool handled = parser.handleDefaultFlags();
	std::cout.rdbuf(old);
	EXPECT_TRUE(handled);
	EXPECT_EQ(captured.str(), expectedHelp.str());

	// without a program name the file name of the program path is shown
	ArgParser unnamed;
	unnamed.parse({"C:\\Program Files\\Orvane\\orvane.exe", "--version"});
	out.str("");
	EXPECT_TRUE(unnamed.handleDefaultFlags(out));
	EXPECT_EQ(out.str(), "orvane.exe\n");
	unnamed.parse({"/usr/bin/orvane", "--help"});
	out.str("");
	unnamed.handleDefaultFlags(out);
	EXPECT_EQ(out.str().compare(0, 23, "Usage: orvane [options]"), 0) << out.str();
}
