#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include <ZEB_ArgParser.h>
#include <ZEB_Exception.h>

#include "ZEB_TestSupport.h"

using ZEB::ArgParser;
using Strings = std::vector<std::string>;

namespace {

const char * const LANG_HELP = "Specify the program language using a 2 character language ID.";
const char * const CHART_HELP = "Export chart #n, with dimensions 'width x height' and filename fn like 'diagram1.pdf'.";

/*! A parser set up with the options the application registers at start-up. */
void setUpApplicationOptions(ArgParser & parser) {
	parser.setProgramName("OrvaneApp");
	parser.setVersion("2.1.0");
	parser.setArgumentsHint("[project file]");
	parser.addFlag("no-splash", "Disables splash screen.");
	parser.addOption("lang", LANG_HELP, "en;de;it;...", "en");
	parser.addOption("generate-chart", CHART_HELP, "n:bxh:fn");
}

/*! Runs of white space collapsed to one blank, so that the help can be searched by words. */
std::string collapsed(const std::string & text) {
	std::istringstream in(text);
	std::string out;
	for (std::string word; in >> word;)
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
	EXPECT_TRUE(parser.flagEnabled("no-splash"));
	EXPECT_EQ(parser.value("generate-chart"), "2:800x600:a=b.png");	// only the first '=' separates
	EXPECT_EQ(parser.args(), Strings({"project.o2", "second.o2", "-"}));
	EXPECT_EQ(parser.executable(), "/opt/orvane/OrvaneApp");

	// flag values are taken exactly as written; an empty value is a value; defaults otherwise
	parser.parse({"OrvaneApp", "--no-splash=TRUE", "--lang="});
	EXPECT_FALSE(parser.flagEnabled("no-splash"));
	EXPECT_TRUE(parser.hasOption("lang"));
	EXPECT_EQ(parser.value("lang"), "");
	parser.parse({"OrvaneApp"});
	EXPECT_FALSE(parser.hasOption("lang"));
	EXPECT_EQ(parser.value("lang"), "en");

	// repeated options keep all values, the last one counts; "--" ends the options
	const char * argv[] = {"OrvaneApp", "--lang=de", "--lang=it", "--", "--lang=fr", "-x", nullptr};
	parser.parse(6, argv);
	EXPECT_EQ(parser.value("lang"), "it");
	EXPECT_EQ(parser.values("lang"), Strings({"de", "it"}));
	EXPECT_EQ(parser.args(), Strings({"--lang=fr", "-x"}));
}


TEST(ZEBArgParser, CommandLineErrors) {
	ArgParser parser;
	setUpApplicationOptions(parser);
	const std::vector<std::pair<Strings, std::string> > bad = {
		{{"--languages"}, "Unknown option '--languages'."},
		{{"-h"}, "Unknown option '-h'."},
		{{"---lang=de"}, "Unknown option '---lang'."},
		{{"--lang"}, "Missing value for option '--lang'."},
		{{"--generate-chart", "1:800x600:a.png"}, "Missing value for option '--generate-chart'."},	// no "--name value"
	};
	for (const auto & b : bad) {
		Strings args = b.first;
		args.insert(args.begin(), "app");
		expectError([&] { parser.parse(args); }, b.second, "[ArgParser::parse]");
	}
	// a failed parse leaves no results of an earlier one behind
	parser.parse({"app", "--lang=de", "p.o2"});
	expectError([&] { parser.parse({"app", "q.o2", "--bad"}); }, "Unknown option '--bad'.", "[ArgParser::parse]");
	EXPECT_FALSE(parser.hasOption("lang"));
	EXPECT_TRUE(parser.args().empty());

	expectError([&] { parser.addFlag("help", "again"); }, "Option '--help' is already defined.", "[ArgParser::addOption]");
	for (const char * name : {"", "-x", "a=b", "a b", "\xC3\xA4"})
		EXPECT_THROW(parser.addOption(name, "", "x"), ZEB::Exception) << name;
	expectError([&] { parser.addOption("a=b", "", "x"); }, "Invalid option name 'a=b'.", "[ArgParser::addOption]");
	expectError([&] { parser.value("nope"); }, "Option '--nope' is not defined.", "[ArgParser::value]");
	EXPECT_THROW(parser.values("nope"), ZEB::Exception);
}


TEST(ZEBArgParser, HelpAndVersion) {
	ArgParser parser;
	setUpApplicationOptions(parser);
	std::ostringstream help;
	parser.printHelp(help);
	const std::string flat = collapsed(help.str());
	EXPECT_EQ(help.str().compare(0, 41, "Usage: OrvaneApp [options] [project file]"), 0) << help.str();
	// each option with its value hint, help text and default, in registration order
	std::size_t pos = 0;
	for (const std::string part : {"--help[=<true|false>]", "Prints this help text and exits.",
			"--version[=<true|false>]", "Prints the program version and exits.",
			"--no-splash[=<true|false>]", "Disables splash screen.", "Default: false",
			"--lang=<en;de;it;...>", LANG_HELP, "Default: en", "--generate-chart=<n:bxh:fn>", CHART_HELP}) {
		const std::size_t found = flat.find(part, pos);
		ASSERT_NE(found, std::string::npos) << "'" << part << "' missing or out of order in:\n" << help.str();
		pos = found + part.size();
	}
	EXPECT_EQ(flat.find("Default:", flat.find("--generate-chart=")), std::string::npos);	// no default, none shown

	// help wins over version; "--help=false" asks for nothing; standard output by default
	const std::vector<std::pair<Strings, std::string> > cases = {
		{{"--help", "p.o2"}, help.str()}, {{"--version"}, "OrvaneApp 2.1.0\n"},
		{{"--version", "--help"}, help.str()}, {{"--help=false", "--lang=de"}, ""}};
	for (const auto & c : cases) {
		Strings args = c.first;
		args.insert(args.begin(), "OrvaneApp");
		parser.parse(args);
		std::ostringstream captured;
		std::streambuf * old = std::cout.rdbuf(captured.rdbuf());
		const bool handled = parser.handleDefaultFlags();
		std::cout.rdbuf(old);
		EXPECT_EQ(handled, !c.second.empty()) << args[1];
		EXPECT_EQ(captured.str(), c.second) << args[1];
	}
	// without a program name the file name of the program path is shown
	ArgParser unnamed;
	unnamed.parse({"C:\\Program Files\\Orvane\\orvane.exe", "--version"});
	std::ostringstream out;
	EXPECT_TRUE(unnamed.handleDefaultFlags(out));
	EXPECT_EQ(out.str(), "orvane.exe\n");
}

