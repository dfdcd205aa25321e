#include "ZEB_ArgParser.h"

#include <iostream>
#include <sstream>

#include "ZEB_Exception.h"
#include "ZEB_MessageFormat.h"

namespace ZEB {

namespace {

const char * const HELP_FLAG = "help";
const char * const VERSION_FLAG = "version";

/*! Indentation of help and default lines. */
const char * const HELP_INDENT = "      ";

/*! Option names are plain words: letters, digits, '-' and '_', not beginning with '-'. */
bool isValidOptionName(const std::string & name) {
	if (name.empty() || name[0] == '-')
		return false;
	for (char c : name) {
		const bool ok = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
		if (!ok)
			return false;
	}
	return true;
}

/*! Writes each line of text indented. Help texts are not wrapped: a sentence stays on one
	line, so that it can be found with grep in the output.
*/
void writeIndented(std::ostream & out, const std::string & text) {
	std::istringstream lines(text);
	std::string line;
	while (std::getline(lines, line))
		out << HELP_INDENT << line << '\n';
}

} // namespace


ArgParser::ArgParser() {
	addFlag(HELP_FLAG, "Prints this help text and exits.");
	addFlag(VERSION_FLAG, "Prints the program version and exits.");
}


std::string ArgParser::programName() const {
	if (!m_programName.empty())
		return m_programName;
	const std::size_t pos = m_executable.find_last_of("/\\");
	return pos == std::string::npos ? m_executable : m_executable.substr(pos + 1);
}


void ArgParser::addOption(const std::string & name, const std::string & helpText, const std::string & valueHint,
						  const std::string & defaultValue, const std::string & implicitValue)
{
	FUNCID(ArgParser::addOption);
	if (!isValidOptionName(name))
		throw Exception(MessageFormat("Invalid option name '%1'.").arg(name), FUNC_ID);
	if (find(name) != nullptr)
		throw Exception(MessageFormat("Option '--%1' is already defined.").arg(name), FUNC_ID);
	Option opt;
	opt.m_name = name;
	opt.m_helpText = helpText;
	opt.m_valueHint = valueHint;
	opt.m_defaultValue = defaultValue;
	opt.m_implicitValue = implicitValue;
	m_options.push_back(opt);
}


void ArgParser::addFlag(const std::string & name, const std::string & helpText) {
	addOption(name, helpText, "true|false", "false", "true");
}


void ArgParser::parse(int argc, const char * const argv[]) {
	std::vector<std::string> args;
	for (int i = 0; i < argc; ++i)
		args.push_back(argv[i] != nullptr ? argv[i] : "");
	parse(args);
}


void ArgParser::parse(const std::vector<std::string> & args) {
	FUNCID(ArgParser::parse);
	// results are collected aside and committed only when the whole command line is valid
	for (Option & opt : m_options)
		opt.m_values.clear();
	m_args.clear();
	m_executable.clear();

	std::vector<std::vector<std::string> > values(m_options.size());
	std::vector<std::string> positional;
	bool optionsEnded = false;
	for (std::size_t i = 1; i < args.size(); ++i) {
		const std::string & arg = args[i];
		if (optionsEnded || arg.empty() || arg[0] != '-' || arg == "-") {
			positional.push_back(arg);
			continue;
		}
		if (arg == "--") {
			optionsEnded = true;
			continue;
		}
		const std::size_t eqPos = arg.find('=');
		const std::string written = arg.substr(0, eqPos);	// "--name" as written, for messages
		const Option * opt = nullptr;
		if (written.size() > 2 && written.compare(0, 2, "--") == 0)
			opt = find(written.substr(2));
		if (opt == nullptr)
			throw Exception(MessageFormat("Unknown option '%1'.").arg(written), FUNC_ID);

		std::vector<std::string> & optValues = values[static_cast<std::size_t>(opt - m_options.data())];
		if (eqPos != std::string::npos)
			optValues.push_back(arg.substr(eqPos + 1));
		else if (!opt->m_implicitValue.empty())
			optValues.push_back(opt->m_implicitValue);
		else
			throw Exception(MessageFormat("Missing value for option '--%1'.").arg(opt->m_name), FUNC_ID);
	}

	for (std::size_t i = 0; i < m_options.size(); ++i)
		m_options[i].m_values.swap(values[i]);
	m_args.swap(positional);
	if (!args.empty())
		m_executable = args.front();
}


bool ArgParser::hasOption(const std::string & name) const {
	FUNCID(ArgParser::hasOption);
	return !option(name, FUNC_ID).m_values.empty();
}


std::string ArgParser::value(const std::string & name) const {
	FUNCID(ArgParser::value);
	const Option & opt = option(name, FUNC_ID);
	return opt.m_values.empty() ? opt.m_defaultValue : opt.m_values.back();
}


const std::vector<std::string> & ArgParser::values(const std::string & name) const {
	FUNCID(ArgParser::values);
	return option(name, FUNC_ID).m_values;
}


bool ArgParser::flagEnabled(const std::string & name) const {
	return value(name) == "true";
}


bool ArgParser::handleDefaultFlags(std::ostream & out) const {
	if (flagEnabled(HELP_FLAG)) {
		printHelp(out);
		return true;
	}
	if (flagEnabled(VERSION_FLAG)) {
		printVersion(out);
		return true;
	}
	return false;
}


bool ArgParser::handleDefaultFlags() const {
	return handleDefaultFlags(std::cout);
}


void ArgParser::printHelp(std::ostream & out) const {
	out << "Usage: " << programName() << " [options]";
	if (!m_argumentsHint.empty())
		out << ' ' << m_argumentsHint;
	out << "\n\nOptions:\n";
	for (const Option & opt : m_options) {
		out << "  --" << opt.m_name;
		if (opt.m_implicitValue.empty())
			out << "=<" << opt.m_valueHint << ">";
		else
			out << "[=<" << opt.m_valueHint << ">]";
		out << '\n';
		if (!opt.m_helpText.empty())
			writeIndented(out, opt.m_helpText);
		if (!opt.m_defaultValue.empty())
			out << HELP_INDENT << "Default: " << opt.m_defaultValue << '\n';
	}
}


void ArgParser::printVersion(std::ostream & out) const {
	out << programName();
	if (!m_version.empty())
		out << ' ' << m_version;
	out << '\n';
}


const ArgParser::Option * ArgParser::find(const std::string & name) const {
	for (const Option & opt : m_options)
		if (opt.m_name == name)
			return &opt;
	return nullptr;
}


const ArgParser::Option & ArgParser::option(const std::string & name, const char * funcId) const {
	const Option * opt = find(name);
	if (opt == nullptr)
		throw Exception(MessageFormat("Option '--%1' is not defined.").arg(name), funcId);
	return *opt;
}

} // namespace ZEB
