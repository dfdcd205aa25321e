#include "Sci_XMLFileMarkupScan.h"

#include <cctype>
#include <cstring>

namespace SCI {

namespace {

// The parser's character classes, made with the same C library calls so that they agree with
// it in every locale.

bool isWhiteSpace(char c) {
	return std::isspace(static_cast<unsigned char>(c)) || c == '\n' || c == '\r';
}

/*! TiXmlBase::IsAlpha: every byte from 127 on counts as a letter. */
bool isAlpha(char c) {
	const unsigned char u = static_cast<unsigned char>(c);
	return u < 127 ? std::isalpha(u) != 0 : true;
}

/*! TiXmlBase::IsAlphaNum */
bool isAlphaNum(char c) {
	const unsigned char u = static_cast<unsigned char>(c);
	return u < 127 ? std::isalnum(u) != 0 : true;
}

/*! TiXmlBase::ToLower in UTF-8 mode: only ASCII is lowered. */
int toLower(char c) {
	const unsigned char u = static_cast<unsigned char>(c);
	return u < 128 ? std::tolower(u) : u;
}

bool isHexDigit(char c) {
	return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

const char XML_HEADER[] = "<?xml";
const char COMMENT_HEADER[] = "<!--";
const char CDATA_HEADER[] = "<![CDATA[";

} // namespace


XMLFileMarkupScan::XMLFileMarkupScan(const char * data, std::size_t size, int depthLimit, int attributeLimit) :
	m_begin(data),
	m_end(data + size),
	m_depthLimit(depthLimit),
	m_attributeLimit(attributeLimit)
{
	document(data);
}


void XMLFileMarkupScan::document(const char * p) {
	p = skipWhiteSpace(p);
	while (p != nullptr && p < m_end && *p == '<') {
		p = node(p);
		if (p != nullptr)
			p = skipWhiteSpace(p);
	}
}


const char * XMLFileMarkupScan::node(const char * p) {
	if (startsWith(p, XML_HEADER, sizeof(XML_HEADER) - 1, true))
		return declaration(p);
	if (startsWith(p, COMMENT_HEADER, sizeof(COMMENT_HEADER) - 1, false)) {
		const char * end = find(p + sizeof(COMMENT_HEADER) - 1, "-->");
		return end == nullptr ? m_end : end + 3;
	}
	if (startsWith(p, CDATA_HEADER, sizeof(CDATA_HEADER) - 1, false))
		return cdata(p);
	if (p + 1 < m_end && (isAlpha(p[1]) || p[1] == '_'))
		return element(p);
	// "<!DOCTYPE ...>" and anything else is an unknown node that ends at the next '>'
	const char * end = find(p + 1, '>');
	return end == nullptr ? m_end : end + 1;
}


const char * XMLFileMarkupScan::element(const char * p) {
	if (++m_currentDepth > m_depth) {
		m_depth = m_currentDepth;
		m_depthOffset = static_cast<std::size_t>(p - m_begin);
	}
	if (m_depth > m_depthLimit)
		return nullptr;
	p = skipWhiteSpace(p + 1);
	const char * nameStart = p;
	p = name(p);
	if (p == nullptr || p >= m_end)
		return nullptr;
	const std::size_t nameLength = static_cast<std::size_t>(p - nameStart);
	int attributes = 0;
	while (p < m_end) {
		p = skipWhiteSpace(p);
		if (p >= m_end)
			return nullptr;
		if (*p == '/') {
			++p;
			if (p >= m_end || *p != '>')
				return nullptr;
			--m_currentDepth;
			return p + 1;
		}
		if (*p == '>') {
			p = content(p + 1);
			if (p == nullptr || p >= m_end)
				return nullptr;
			// the end tag is "</" and the name, then optional white space and '>'
			if (!startsWith(p, "</", 2, false) || static_cast<std::size_t>(m_end - p - 2) < nameLength
					|| std::memcmp(p + 2, nameStart, nameLength) != 0)
				return nullptr;
			p = skipWhiteSpace(p + 2 + nameLength);
			if (p >= m_end || *p != '>')
				return nullptr;
			--m_currentDepth;
			return p + 1;
		}
		const char * attributeStart = p;
		p = attribute(p);
		if (p == nullptr || p >= m_end)
			return nullptr;
		if (++attributes > m_attributes) {
			m_attributes = attributes;
			m_attributesOffset = static_cast<std::size_t>(attributeStart - m_begin);
		}
		if (m_attributes > m_attributeLimit)
			return nullptr;
	}
	return nullptr;
}


const char * XMLFileMarkupScan::content(const char * p) {
	p = skipWhiteSpace(p);
	while (p < m_end) {
		if (*p != '<') {
			// a text node: the parser hands back the position of the '<' after it
			p = text(p, '<');
			if (p == nullptr)
				return nullptr;
			--p;
		}
		else if (startsWith(p, "</", 2, false)) {
			return p;
		}
		else {
			p = node(p);
			if (p == nullptr)
				return nullptr;
		}
		p = skipWhiteSpace(p);
	}
	return p;
}


const char * XMLFileMarkupScan::attribute(const char * p) {
	p = skipWhiteSpace(p);
	if (p >= m_end)
		return nullptr;
	p = name(p);
	if (p == nullptr || p >= m_end)
		return nullptr;
	p = skipWhiteSpace(p);
	if (p >= m_end || *p != '=')
		return nullptr;
	p = skipWhiteSpace(p + 1);
	if (p >= m_end)
		return nullptr;
	if (*p == '\'' || *p == '"')
		return text(p + 1, *p);
	// a value without quotes ends at white space, '/' or '>'; a quote in it is an error
	while (p < m_end && !isWhiteSpace(*p) && *p != '/' && *p != '>') {
		if (*p == '\'' || *p == '"')
			return nullptr;
		++p;
	}
	return p;
}


const char * XMLFileMarkupScan::declaration(const char * p) {
	p += sizeof(XML_HEADER) - 1;
	while (p < m_end) {
		if (*p == '>')
			return p + 1;
		p = skipWhiteSpace(p);
		if (p >= m_end)
			return nullptr;
		if (startsWith(p, "version", 7, true) || startsWith(p, "encoding", 8, true)
				|| startsWith(p, "standalone", 10, true))
		{
			p = attribute(p);
			if (p == nullptr)
				return nullptr;
		}
		else {
			while (p < m_end && *p != '>' && !isWhiteSpace(*p))
				++p;
		}
	}
	return nullptr;
}


const char * XMLFileMarkupScan::cdata(const char * p) const {
	const char * end = find(p + sizeof(CDATA_HEADER) - 1, "]]>");
	if (end == nullptr || end + 3 >= m_end)
		return nullptr;
	return end + 3;
}


const char * XMLFileMarkupScan::text(const char * p, char endChar) const {
	while (p < m_end && *p != endChar) {
		if (*p == '&') {
			p = entity(p);
			if (p == nullptr)
				return nullptr;
		}
		else {
			++p;
		}
	}
	if (p >= m_end || p + 1 >= m_end)
		return nullptr;
	return p + 1;
}


const char * XMLFileMarkupScan::entity(const char * p) const {
	// "&#x...;" and "&#...;" run to the next ';'; read backwards from there, everything up to
	// the 'x' (or '#') must be a digit. Named entities hold no character that ends a text, so
	// they may be passed byte by byte.
	if (p + 2 >= m_end || p[1] != '#')
		return p + 1;
	const bool hex = p[2] == 'x';
	if (hex && p + 3 >= m_end)
		return nullptr;
	const char * semicolon = find(p + (hex ? 3 : 2), ';');
	if (semicolon == nullptr)
		return nullptr;
	for (const char * q = semicolon - 1; *q != (hex ? 'x' : '#'); --q)
		if (hex ? !isHexDigit(*q) : !(*q >= '0' && *q <= '9'))
			return nullptr;
	return semicolon + 1;
}


const char * XMLFileMarkupScan::name(const char * p) const {
	if (p >= m_end || !(isAlpha(*p) || *p == '_'))
		return nullptr;
	while (p < m_end && (isAlphaNum(*p) || *p == '_' || *p == '-' || *p == '.' || *p == ':'))
		++p;
	return p;
}


const char * XMLFileMarkupScan::skipWhiteSpace(const char * p) const {
	while (p < m_end) {
		// the byte order mark EF BB BF and the non-characters EF BF BE and EF BF BF
		if (m_end - p >= 3 && static_cast<unsigned char>(p[0]) == 0xEF
				&& ((static_cast<unsigned char>(p[1]) == 0xBB && static_cast<unsigned char>(p[2]) == 0xBF)
					|| (static_cast<unsigned char>(p[1]) == 0xBF
						&& (static_cast<unsigned char>(p[2]) == 0xBE || static_cast<unsigned char>(p[2]) == 0xBF))))
		{
			p += 3;
			continue;
		}
		if (!isWhiteSpace(*p))
			break;
		++p;
	}
	return p;
}


bool XMLFileMarkupScan::startsWith(const char * p, const char * tag, std::size_t tagLength, bool ignoreCase) const {
	if (static_cast<std::size_t>(m_end - p) < tagLength)
		return false;
	for (std::size_t i = 0; i < tagLength; ++i) {
		if (ignoreCase ? toLower(p[i]) != toLower(tag[i]) : p[i] != tag[i])
			return false;
	}
	return true;
}


const char * XMLFileMarkupScan::find(const char * p, char c) const {
	if (p >= m_end)
		return nullptr;
	return static_cast<const char *>(std::memchr(p, c, static_cast<std::size_t>(m_end - p)));
}


const char * XMLFileMarkupScan::find(const char * p, const char * tag) const {
	const std::size_t tagLength = std::strlen(tag);
	for (p = find(p, tag[0]); p != nullptr; p = find(p + 1, tag[0]))
		if (startsWith(p, tag, tagLength, false))
			return p;
	return nullptr;
}

} // namespace SCI
