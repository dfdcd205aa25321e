#include "DATAIOFUZZ_SessionData.h"

#include <SD_SampleDataSet.h>

namespace DATAIOFUZZ {

void SessionData::write(const std::string & dir) {
	SD::SampleDataSet::Options options;
	options.m_directory = dir;
	options.m_hours = 7*24;
	options.m_wallElements = 9;
	options.m_detailCells = 6;
	options.m_detailStep = 6;
	SD::SampleDataSet(options).write();
}


bool SessionData::isOutputFile(const std::string & fileName) {
	const std::string::size_type dot = fileName.rfind('.');
	return dot != std::string::npos && fileName.compare(dot, 2, ".d") == 0;
}

} // namespace DATAIOFUZZ
