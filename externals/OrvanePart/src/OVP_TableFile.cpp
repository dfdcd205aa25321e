#include "OVP_TableFile.h"

#include <algorithm>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_ReaderText.h"

namespace OVP {

TableFile::TableFile(const std::string & fileName) :
	m_fileName(fileName)
{
	FUNCID(TableFile::TableFile);
	m_in.open(fileName, std::ios::binary);
	if (!m_in)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot open file '%1'").arg(fileName), FUNC_ID);
	m_in.seekg(0, std::ios::end);
	const std::streamoff size = m_in.tellg();
	if (size < 0)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot open file '%1'").arg(fileName), FUNC_ID);
	m_size = static_cast<std::uint64_t>(size);
	if (m_size == 0)
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' is empty.").arg(fileName), FUNC_ID);
	// the first block decides line ends and encoding
	std::string block(static_cast<std::size_t>(std::min<std::uint64_t>(m_size, HEAD_BLOCK)), '\0');
	m_in.seekg(0);
	m_in.read(&block[0], static_cast<std::streamsize>(block.size()));
	block.resize(static_cast<std::size_t>(m_in.gcount()));
	const bool bom = block.compare(0, 3, ReaderText::BOM) == 0;
	if (block.find('\n') == std::string::npos && block.find('\r') != std::string::npos)
		m_lineEnd = '\r';
	m_latin1 = !bom && !ReaderText::isUtf8(block.data(), block.data() + block.size());
	m_lineStart = bom ? 3 : 0;
	m_head.reset(new DATAIO::LineReader(m_in, fileName, m_lineStart, m_size, 1, MAX_LINE_LENGTH, HEAD_BLOCK,
										nullptr, m_lineEnd));
}


bool TableFile::nextLine(std::string & text) {
	const std::uint64_t start = m_head->consumed();
	const char * begin;
	const char * end;
	if (!m_head->next(begin, end))
		return false;
	m_head->checkText(begin, end);
	m_lineStart = start;
	text.assign(begin, end);
	if (m_latin1)
		text = ReaderText::latin1ToUtf8(text);
	return true;
}


std::vector<TableFile::Line> TableFile::nextLines(std::size_t count) {
	std::vector<Line> lines;
	std::string text;
	while (lines.size() < count && nextLine(text))
		if (!isBlank(text))
			lines.push_back(Line{ text, lineNumber(), lineStart(), consumed() });
	return lines;
}


std::unique_ptr<DATAIO::LineReader> TableFile::body(std::uint64_t offset, std::uint64_t line,
													 ZEB::NotificationHandler * notification) {
	return std::unique_ptr<DATAIO::LineReader>(new DATAIO::LineReader(m_in, m_fileName, offset, m_size, line,
		MAX_LINE_LENGTH, BODY_BLOCK, notification, m_lineEnd));
}

} // namespace OVP
