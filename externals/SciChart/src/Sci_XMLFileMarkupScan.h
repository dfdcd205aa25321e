#ifndef Sci_XMLFileMarkupScanH
#define Sci_XMLFileMarkupScanH

#include <cstddef>

namespace SCI {

/*! Walks through the markup of an XML text exactly as TinyXML 2.6 parses it, without building
	a document, and records how deep its elements nest and how many attributes an element has.
	It follows the parser's own rules, which differ from XML in places: a numeric character
	reference runs to the next ';' wherever that is (so it may swallow tags), "<!...>" and
	"<?...>" end at the next '>', an unterminated comment runs to the end, and white space and
	letters are classified with the C library like the parser does. Where the parser stops with
	an error the scan stops too, so the depth found is the depth the parser's recursion reaches.

	The text must be well-formed UTF-8 without NUL bytes (see XMLFileCheck): then no multi-byte
	character holds an ASCII byte and the scan may look at single bytes.
*/
class XMLFileMarkupScan {
public:
	/*! Scans size bytes of data. The scan ends early once the nesting gets deeper than
		depthLimit or an element gets more than attributeLimit attributes.
	*/
	XMLFileMarkupScan(const char * data, std::size_t size, int depthLimit, int attributeLimit);

	/*! The deepest nesting of elements found (1 for a root without child elements). */
	int depth() const { return m_depth; }
	/*! Byte offset of the start tag that reached depth(). */
	std::size_t depthOffset() const { return m_depthOffset; }
	/*! The largest number of attributes of one element. */
	int attributes() const { return m_attributes; }
	/*! Byte offset of the attribute that reached attributes(). */
	std::size_t attributesOffset() const { return m_attributesOffset; }

private:
	// Each step mirrors the parser function named in its comment; it gets the position where
	// that function starts and returns the position after what it read, or nullptr where the
	// parser fails (or a limit was exceeded).

	/*! TiXmlDocument::Parse */
	void document(const char * p);
	/*! TiXmlNode::Identify followed by the Parse of the node found; p is at '<'. */
	const char * node(const char * p);
	/*! TiXmlElement::Parse; p is at '<'. */
	const char * element(const char * p);
	/*! TiXmlElement::ReadValue: the content of an element up to its end tag. */
	const char * content(const char * p);
	/*! TiXmlAttribute::Parse */
	const char * attribute(const char * p);
	/*! TiXmlDeclaration::Parse; p is at "<?xml". */
	const char * declaration(const char * p);
	/*! TiXmlText::Parse of a CDATA section; p is at "<![CDATA[". */
	const char * cdata(const char * p) const;
	/*! TiXmlBase::ReadText with a one-character end tag: returns the position after endChar. */
	const char * text(const char * p, char endChar) const;
	/*! TiXmlBase::GetEntity; p is at '&'. */
	const char * entity(const char * p) const;
	/*! TiXmlBase::ReadName */
	const char * name(const char * p) const;
	/*! TiXmlBase::SkipWhiteSpace in UTF-8 mode (also skips byte order marks). */
	const char * skipWhiteSpace(const char * p) const;
	/*! TiXmlBase::StringEqual: whether the text at p starts with tag. */
	bool startsWith(const char * p, const char * tag, std::size_t tagLength, bool ignoreCase) const;
	/*! The first position of c at or after p, or nullptr. */
	const char * find(const char * p, char c) const;
	/*! The first position of tag at or after p, or nullptr. */
	const char * find(const char * p, const char * tag) const;

	const char *	m_begin;
	const char *	m_end;
	int				m_depthLimit;
	int				m_attributeLimit;
	/*! Nesting at the current position. */
	int				m_currentDepth = 0;
	int				m_depth = 0;
	std::size_t		m_depthOffset = 0;
	int				m_attributes = 0;
	std::size_t		m_attributesOffset = 0;
};

} // namespace SCI

#endif // Sci_XMLFileMarkupScanH
