#include "OVP_FileReaderRegistry.h"

#include <algorithm>
#include <fstream>

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include "OVP_CcdReader.h"
#include "OVP_LoggerReader.h"
#include "OVP_StatisticsReader.h"
#include "OVP_TableReader.h"
#include "OVP_WacReader.h"

namespace OVP {

const FileReaderRegistry & FileReaderRegistry::instance() {
	static const FileReaderRegistry registry;
	return registry;
}


FileReaderRegistry::FileReaderRegistry() {
	// climate files and statistics first: statistics files share extensions with tables; logger
	// exports before the general tables they also are
	m_readers.emplace_back(new CcdReader);
	m_readers.emplace_back(new WacReader);
	m_readers.emplace_back(new StatisticsReader);
	m_readers.emplace_back(new LoggerReader);
	m_readers.emplace_back(new TableReader);
}


const FileReader * FileReaderRegistry::readerFor(const std::string & fileName) const {
	std::ifstream in(fileName, std::ios::binary);
	if (!in)
		return nullptr;
	std::string head(FileReader::HEAD_SIZE, '\0');
	in.read(&head[0], static_cast<std::streamsize>(head.size()));
	head.resize(static_cast<std::size_t>(in.gcount()));
	return readerFor(fileName, head);
}


const FileReader * FileReaderRegistry::readerFor(const std::string & fileName, const std::string & head) const {
	if (isSimulationFile(head))
		return nullptr;
	for (const std::unique_ptr<FileReader> & reader : m_readers)
		if (matches(fileName, reader->patterns()) && reader->accepts(fileName, head))
			return reader.get();
	return nullptr;
}


std::vector<std::string> FileReaderRegistry::patterns() const {
	std::vector<std::string> all;
	for (const std::unique_ptr<FileReader> & reader : m_readers)
		for (const std::string & pattern : reader->patterns())
			if (std::find(all.begin(), all.end(), pattern) == all.end())
				all.push_back(pattern);
	return all;
}


bool FileReaderRegistry::isSimulationFile(const std::string & head) {
	for (const char * magic : { DATAIO::DataIO::MAGIC_ASCII, DATAIO::DataIO::MAGIC_BINARY,
								DATAIO::GeoFile::MAGIC_ASCII, DATAIO::GeoFile::MAGIC_BINARY })
		if (head.compare(0, 8, magic) == 0)
			return true;
	return head.substr(0, 40).find(DATAIO::DataIO::PRE_V6_TITLE) != std::string::npos;
}


bool FileReaderRegistry::matches(const std::string & fileName, const std::vector<std::string> & patterns) {
	QStringList filters;
	for (const std::string & pattern : patterns)
		filters << QString::fromStdString(pattern);
	return QDir::match(filters, QFileInfo(QString::fromStdString(fileName)).fileName());
}

} // namespace OVP
