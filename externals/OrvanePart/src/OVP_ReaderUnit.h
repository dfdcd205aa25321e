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
};

} // namespace OVP

#endif // OVP_ReaderUnitH
