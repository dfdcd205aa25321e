#ifndef OVP_ReaderUnitH
#define OVP_ReaderUnitH

#include <string>

namespace OVP {

/*! Maps the unit texts found in the headers of foreign files ("°C", "%RH", "W/m²") onto the
	names of the unit table ("C", "%", "W/m2").
*/
class ReaderUnit {
public:
	/*! The unit table name for a unit text (UTF-8, blanks and brackets around it ignored); an
		empty text gives "-". Returns false (and unit "-") for a text that names no unit of the
		table; the reader then warns, naming the text and the column.
	*/
	static bool fromText(const std::string & text, std::string & unit);
	/*! Splits a column header into name and unit text: "Name [unit]", "Name (unit)" and
		"Name, unit" (the last comma); a header without unit gives an empty unit text. Both parts
		are trimmed.
	*/
	static void splitHeader(const std::string & header, std::string & name, std::string & unitText);
};

} // namespace OVP

#endif // OVP_ReaderUnitH
