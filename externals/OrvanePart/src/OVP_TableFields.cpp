#include "OVP_TableFields.h"

#include "OVP_ReaderText.h"

namespace OVP {

const char TableFields::DELIMITERS[3] = { '\t', ';', ',' };


bool TableFields::split(const char * begin, const char * end, char delimiter, std::vector<Field> & fields) {
	fields.clear();
	// the usual case, no quotes: cut at every delimiter
	const char * start = begin;
	for (const char * p = begin; p < end; ++p) {
		if (*p == delimiter) {
			fields.push_back(Field{ start, p });
			start = p + 1;
		}
		else if (*p == '"') {
			fields.clear();
			return splitQuoted(begin, end, delimiter, fields);
		}
	}
	fields.push_back(Field{ start, end });
	return true;
}


bool TableFields::splitQuoted(const char * begin, const char * end, char delimiter, std::vector<Field> & fields) {
	const char * p = begin;
	while (true) {
		const char * start = p;
		while (p < end && *p == ' ')
			++p;
		if (p < end && *p == '"') {
			// a quoted field: up to the closing quote that is not doubled
			++p;
			while (true) {
				while (p < end && *p != '"')
					++p;
				if (p == end)
					return false;
				if (p + 1 < end && p[1] == '"')
					p += 2;
				else
					break;
			}
			++p;
		}
		while (p < end && *p != delimiter)
			++p;
		fields.push_back(Field{ start, p });
		if (p == end)
			return true;
		++p;
	}
}


std::size_t TableFields::count(const std::string & line, char delimiter) {
	std::vector<Field> fields;
	if (!split(line.data(), line.data() + line.size(), delimiter, fields))
		return 0;
	return fields.size();
}


std::string TableFields::text(const Field & field) {
	const char * begin = field.m_begin;
	const char * end = field.m_end;
	ReaderText::trim(begin, end);
	if (end - begin < 2 || *begin != '"' || end[-1] != '"')
		return std::string(begin, end);
	std::string t;
	for (const char * p = begin + 1; p < end - 1; ++p) {
		t += *p;
		if (*p == '"' && p + 1 < end - 1 && p[1] == '"')
			++p;
	}
	return t;
}


bool TableFields::texts(const std::string & line, char delimiter, std::vector<std::string> & texts) {
	std::vector<Field> fields;
	texts.clear();
	if (!split(line.data(), line.data() + line.size(), delimiter, fields))
		return false;
	for (const Field & f : fields)
		texts.push_back(text(f));
	return true;
}


char TableFields::detectDelimiter(const std::vector<std::string> & lines) {
	if (lines.empty())
		return 0;
	char fallback = 0;
	for (char delimiter : DELIMITERS) {
		const std::size_t n = count(lines.front(), delimiter);
		if (n < 2)
			continue;
		if (fallback == 0)
			fallback = delimiter;
		bool same = true;
		for (std::size_t i = 1; i < lines.size() && same; ++i)
			same = count(lines[i], delimiter) == n;
		if (same)
			return delimiter;
	}
	return fallback;
}

} // namespace OVP
