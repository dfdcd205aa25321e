#ifndef Sci_XMLFileCheckH
#define Sci_XMLFileCheckH

#include <cstddef>
#include <string>

namespace SCI {

/*! Checks the bytes of an XML file before TinyXML 2.6 parses them and refuses what the parser
	cannot take safely, with a message that names the file, the byte offset and the line:
	- text that is not well-formed UTF-8: the parser steps over a multi-byte character as a whole
	  and so reads past the end of its buffer when the text ends inside one;
	- NUL bytes, at which the parser would stop without an error;
	- elements nested deeper than MAX_NESTING_DEPTH: the parser and the destructor of its document
	  recurse once per level, and some ten thousand levels overflow the stack;
	- elements with more than MAX_ATTRIBUTES attributes: the parser compares each attribute with
	  all earlier ones of its element, so that time grows with the square of their number.
	Nesting and attributes are counted by XMLFileMarkupScan, which reads like the parser.
*/
class XMLFileCheck {
public:
	/*! Deepest nesting of elements accepted; the files of this program need less than ten. */
	static constexpr int MAX_NESTING_DEPTH = 256;
	/*! Most attributes of one element accepted; the files of this program need less than ten. */
	static constexpr int MAX_ATTRIBUTES = 64;

	/*! Throws ZEB::Exception when the size bytes of data must not be parsed; fileName names the
		file in the message.
	*/
	static void check(const char * data, std::size_t size, const std::string & fileName);
};

} // namespace SCI

#endif // Sci_XMLFileCheckH
