#ifndef DATAIO_TokenizerH
#define DATAIO_TokenizerH

#include <charconv>
#include <cstdint>

#include <ZEB_StringUtils.h>

namespace DATAIO {

/*! Splits a character range at blanks and tabs and parses its tokens one after the other,
	without copying. Used for the number lists and table rows of the ASCII formats.
*/
class Tokenizer {
public:
	Tokenizer(const char * begin, const char * end) : m_pos(begin), m_end(end) {}

	/*! The next token [tb, te); false when only separators are left. */
	bool next(const char *& tb, const char *& te) {
		skipSeparators();
		if (m_pos == m_end)
			return false;
		tb = m_pos;
		while (m_pos != m_end && !isSeparator(*m_pos))
			++m_pos;
		te = m_pos;
		return true;
	}

	/*! Parses the next token as an integer of type T; false when missing or not an integer. */
	template <typename T>
	bool nextInteger(T & value) {
		const char * tb;
		const char * te;
		if (!next(tb, te))
			return false;
		std::from_chars_result res = std::from_chars(tb, te, value);
		return res.ec == std::errc() && res.ptr == te;
	}

	/*! Parses the next token as a double; false when missing or not a number. */
	bool nextDouble(double & value) {
		const char * tb;
		const char * te;
		return next(tb, te) && ZEB::parseDouble(tb, te, value);
	}

	/*! True when only separators are left. */
	bool atEnd() {
		skipSeparators();
		return m_pos == m_end;
	}

	/*! The unparsed rest, leading separators skipped. */
	const char * rest() {
		skipSeparators();
		return m_pos;
	}

	static bool isSeparator(char c) { return c == ' ' || c == '\t'; }

private:
	void skipSeparators() {
		while (m_pos != m_end && isSeparator(*m_pos))
			++m_pos;
	}

	const char *	m_pos;
	const char *	m_end;
};

} // namespace DATAIO

#endif // DATAIO_TokenizerH
