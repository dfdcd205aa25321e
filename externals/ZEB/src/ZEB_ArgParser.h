#ifndef ZEB_ArgParserH
#define ZEB_ArgParserH

#include <iosfwd>
#include <string>
#include <vector>

namespace ZEB {

/*! Command-line parser for long options, flags and positional arguments.

	Syntax:
	- Options are written with two leading dashes and an equals sign: --lang=de. Everything after
	  the first '=' is the value, so values may contain '=' and ':' (--generate-chart=1:800x600:a.png).
	  An empty value (--lang=) is a value. The form "--name value" with a blank is NOT accepted,
	  so that an option can never swallow a following file name.
	- An option may have an implicit value, used when it is written without '=' (--no-splash
	  means --no-splash=true). Flags (addFlag()) are options with value hint "true|false",
	  default "false" and implicit value "true". Writing an option without '=' that has no
	  implicit value is an error ("Missing value for option '--%1'.").
	- An option given several times keeps all values in order; value() returns the last one.
	- Any other argument that starts with '-' (single-dash forms like -h) is an unknown option.
	- Arguments not starting with '-' are positional arguments and are kept in order. A lone
	  "--" ends option processing: every argument after it is positional, even "--x". A lone
	  "-" is a positional argument too (by convention standard input).
	- The first argument is the program path and is never parsed.

	Built-in flags, registered first and therefore listed first in the help: --help and
	--version. handleDefaultFlags() prints the help text or "<program name> <version>" and tells
	the caller to quit.

	Errors in registration or on the command line raise ZEB::Exception.
*/
class ArgParser {
public:
	/*! Registers the built-in flags "help" and "version". */
	ArgParser();

	/*! Name shown in the usage line and the version output; by default the file name of the
		program path given to parse().
	*/
	void setProgramName(const std::string & name) { m_programName = name; }
	std::string programName() const;
	/*! Version text printed by --version. */
	void setVersion(const std::string & version) { m_version = version; }
	/*! Text after "[options]" in the usage line, describing the positional arguments. */
	void setArgumentsHint(const std::string & hint) { m_argumentsHint = hint; }

	/*! Registers an option that takes a value.
		\param name Option name without dashes; letters, digits, '-' and '_' only, not starting
			with '-', unique.
		\param helpText Description shown in the help output.
		\param valueHint Short hint of the value syntax, shown as --name=<hint>.
		\param defaultValue Value returned by value() when the option is not given.
		\param implicitValue When not empty, the value used for the option written without '='.
	*/
	void addOption(const std::string & name, const std::string & helpText, const std::string & valueHint,
				   const std::string & defaultValue = std::string(), const std::string & implicitValue = std::string());
	/*! Registers a flag: an option with hint "true|false", default "false", implicit "true". */
	void addFlag(const std::string & name, const std::string & helpText);

	/*! Parses argv[0..argc-1]; argv[0] is the program path. Previous results are discarded;
		when parsing fails, the parser holds no results at all (as if nothing was given).
	*/
	void parse(int argc, const char * const argv[]);
	/*! Parses a list of arguments whose first entry is the program path. */
	void parse(const std::vector<std::string> & args);

	/*! True when the option was given on the command line. Throws for an unregistered name. */
	bool hasOption(const std::string & name) const;
	/*! Value of the option: the last one given, else its default. Throws for an unregistered name. */
	std::string value(const std::string & name) const;
	/*! All values given for the option, in command-line order (empty when not given). */
	const std::vector<std::string> & values(const std::string & name) const;
	/*! True when the option's value (given or default) is exactly "true". */
	bool flagEnabled(const std::string & name) const;

	/*! Positional arguments, in command-line order. */
	const std::vector<std::string> & args() const { return m_args; }
	/*! The program path (first argument) of the last parse. */
	const std::string & executable() const { return m_executable; }

	/*! Handles the built-in flags: with --help prints the help, else with --version prints the
		version, and returns true; returns false when neither was given. The application quits
		(returns 0) when this returns true.
	*/
	bool handleDefaultFlags(std::ostream & out) const;
	/*! handleDefaultFlags() on standard output. */
	bool handleDefaultFlags() const;

	/*! Writes the usage line and one block per option in registration order: "--name=<hint>",
		the help text indented and wrapped, and "Default: ..." when the default is not empty.
	*/
	void printHelp(std::ostream & out) const;
	/*! Writes "<program name> <version>" and a line end. */
	void printVersion(std::ostream & out) const;

private:
	/*! One registered option and what the last parse found for it. */
	struct Option {
		std::string					m_name;
		std::string					m_helpText;
		std::string					m_valueHint;
		std::string					m_defaultValue;
		std::string					m_implicitValue;
		std::vector<std::string>	m_values;	///< values given on the command line
	};

	/*! The registered option with this name, or null. */
	const Option * find(const std::string & name) const;
	/*! The registered option with this name; throws with the caller's function id otherwise. */
	const Option & option(const std::string & name, const char * funcId) const;

	std::vector<Option>			m_options;		///< in registration order
	std::vector<std::string>	m_args;
	std::string					m_executable;
	std::string					m_programName;
	std::string					m_version;
	std::string					m_argumentsHint;
};

} // namespace ZEB

#endif // ZEB_ArgParserH
