#include "SD_OutputFile.h"

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include <DATAIO_DataIO.h>

#include "SD_SignificantDigits.h"

namespace SD {

void OutputFile::addFile(const std::string & path, const DATAIO::DataIO & header) {
	FUNCID(OutputFile::addFile);
	File f;
	if (header.timeUnit() == "h")
		f.m_unitsPerHour = 1;
	else if (header.timeUnit() == "s")
		f.m_unitsPerHour = 3600;
	else
		throw ZEB::Exception(ZEB::MessageFormat("Unsupported time unit '%1' for '%2'.").arg(header.timeUnit()).arg(path), FUNC_ID);
	f.m_writer.reset(new DATAIO::DataIOWriter);
	f.m_writer->open(path, header);
	m_files.push_back(std::move(f));
}


void OutputFile::append(double hours, const std::vector<double> & values) {
	if (m_files.empty())
		return;
	m_rounded.resize(values.size());
	for (std::size_t i = 0; i < values.size(); ++i)
		m_rounded[i] = SignificantDigits::round(values[i], SIGNIFICANT_DIGITS);
	for (File & f : m_files)
		f.m_writer->appendRecord(hours*f.m_unitsPerHour, m_rounded.data(), m_rounded.size());
}


void OutputFile::close() {
	for (File & f : m_files)
		f.m_writer->close();
	m_files.clear();
}

} // namespace SD
