#include "DATAIO_LineReader.h"

#include <istream>

namespace DATAIO {

bool LineReader::next(std::string & line) {
	if (!std::getline(m_in, line))
		return false;
	m_terminated = !m_in.eof();
	m_consumed += line.size() + (m_terminated ? 1 : 0);
	if (!line.empty() && line.back() == '\r')
		line.pop_back();
	return true;
}

} // namespace DATAIO
