#include "OVP_DataCollectionReader.h"

#include <algorithm>
#include <fstream>

#include <QFileInfo>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_Unit.h>
#include <ZEB_UnitList.h>

#include "OVP_FileReaderRegistry.h"

namespace OVP {

namespace {

const char * const UNREADABLE = "Invalid/unrecognized data file or data/geometry file cannot be accessed.";

} // namespace


DataCollection DataCollectionReader::read(const QString & path) {
	FUNCID(DataCollectionReader::read);
	// the file state is taken before the header is read, so that a change while reading shows
	// as a change at the next look
	const QFileInfo info(path);
	DataCollection collection;
	collection.m_path = info.absoluteFilePath();
	collection.m_lastModified = info.lastModified();
	collection.m_size = info.size();

	DATAIO::DataIO header;
	const std::string fileName = collection.m_path.toStdString();
	const FileReader * reader = FileReaderRegistry::instance().readerFor(fileName);
	if (reader != nullptr) {
		readForeignHeader(*reader, fileName, header);
		collection.takeHeader(header);
		return collection;
	}
	try {
		header.openAndReadHeader(fileName);
		collection.m_geometry = m_geometries.determineDataFormat(header);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, UNREADABLE, FUNC_ID);
	}
	catch (std::exception & ex) {
		throw ZEB::Exception(ex, UNREADABLE, FUNC_ID);
	}
	checkHeader(header);

	collection.takeHeader(header);
	return collection;
}


bool DataCollectionReader::isDataFile(const QString & path) {
	const FileReaderRegistry & registry = FileReaderRegistry::instance();
	const std::string fileName = path.toStdString();
	if (!FileReaderRegistry::matches(fileName, registry.patterns()))
		return true;
	std::ifstream in(fileName, std::ios::binary);
	// a file that cannot be opened is left to the reading, which reports it
	if (!in.is_open())
		return true;
	std::string head(FileReader::HEAD_SIZE, '\0');
	in.read(&head[0], static_cast<std::streamsize>(head.size()));
	head.resize(static_cast<std::size_t>(in.gcount()));
	return FileReaderRegistry::isSimulationFile(head) || registry.readerFor(fileName, head) != nullptr;
}


void DataCollectionReader::readForeignHeader(const FileReader & reader, const std::string & fileName,
											 DATAIO::DataIO & header)
{
	FUNCID(DataCollectionReader::readForeignHeader);
	try {
		reader.readHeader(fileName, header);
	}
	catch (ZEB::Exception & ex) {
		const std::string cause = ex.messages().empty() ? std::string(ex.what()) : ex.messages().back().m_what;
		throw ZEB::Exception(ex, ZEB::MessageFormat("FileReader reported header error for file '%1': %2")
							 .arg(fileName).arg(cause), FUNC_ID);
	}
	checkForeignHeader(header);
}


void DataCollectionReader::checkForeignHeader(const DATAIO::DataIO & header) {
	FUNCID(DataCollectionReader::checkForeignHeader);
	const ZEB::UnitList & units = ZEB::UnitList::instance();
	for (std::size_t i = 0; i < std::max<std::size_t>(header.nums().size(), 1); ++i) {
		const std::string & unit = header.columnUnit(i);
		if (unit.empty() || units.retrieve(unit) == nullptr)
			throw ZEB::Exception(ZEB::MessageFormat("Invalid value unit '%1' reported from file reader plugin.").arg(unit),
								 FUNC_ID);
	}
	const ZEB::UnitData * timeUnit = units.retrieve(header.timeUnit());
	if (timeUnit == nullptr || timeUnit->base_id() != ZEB::Unit("s").base_id())
		throw ZEB::Exception(ZEB::MessageFormat("Invalid time unit '%1' reported from file reader plugin.")
							 .arg(header.timeUnit()), FUNC_ID);
	if (header.quantity().empty())
		throw ZEB::Exception("Missing quantity description in DataIO container.", FUNC_ID);
}


void DataCollectionReader::checkHeader(const DATAIO::DataIO & header) {
	FUNCID(DataCollectionReader::checkHeader);
	const ZEB::UnitList & units = ZEB::UnitList::instance();
	if (header.valueUnit().empty())
		throw ZEB::Exception("Value unit empty in DataIO container.", FUNC_ID);
	if (units.retrieve(header.valueUnit()) == nullptr)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid/unknown value unit '%1' in DataIO container.")
							 .arg(header.valueUnit()), FUNC_ID);
	if (header.timeUnit().empty())
		throw ZEB::Exception("Time unit empty in DataIO container.", FUNC_ID);
	const ZEB::UnitData * timeUnit = units.retrieve(header.timeUnit());
	if (timeUnit == nullptr)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid/unknown time unit '%1' in DataIO container.")
							 .arg(header.timeUnit()), FUNC_ID);
	if (timeUnit->base_id() != ZEB::Unit("s").base_id())
		throw ZEB::Exception("Unit set as time unit is not convertable to seconds (not a time unit?).", FUNC_ID);
	if (header.quantity().empty())
		throw ZEB::Exception("Missing quantity description in DataIO container.", FUNC_ID);
}

} // namespace OVP
