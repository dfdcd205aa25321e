// libFuzzer target for the session file reader OVP::Project::readXML, with its directories,
// mappers (extractors and the chart model XML inside them) and split layout. Each input is a
// session file; it lies in a folder beside the small result set of SessionData (in "data"), so
// that mappers referring to "./data/..." find their files, which stay open for all inputs.
// Besides "no crash, no sanitizer report" it checks that every refusal is a proper error chain,
// that the markup scan of the XML file check agrees with the parser, and that a session that
// reads is written (with all properties) and read back with the same directories and mappers.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <QFile>

#include <ZEB_Exception.h>

#include <DATAIO_DataIO.h>

#include <OVP_DataManager.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>

#include "DATAIOFUZZ_Checks.h"
#include "DATAIOFUZZ_GuiEnvironment.h"
#include "DATAIOFUZZ_SessionData.h"
#include "DATAIOFUZZ_TempFile.h"
#include "DATAIOFUZZ_XMLChecks.h"

namespace {

using DATAIOFUZZ::Checks;

/*! The folder of the session files with the result set below it, and the data manager that
	holds every output file of the set open; the folder is removed at the end.
*/
class SessionFolder {
public:
	SessionFolder() :
		m_path(DATAIOFUZZ::TempFile::scratchPath("session"))
	{
		const std::string dataDir = m_path + "/data";
		try {
			DATAIOFUZZ::SessionData::write(dataDir);
			for (const auto & entry : std::filesystem::directory_iterator(dataDir))
				if (DATAIOFUZZ::SessionData::isOutputFile(entry.path().filename().string()))
					m_open.push_back(m_dataManager.container(QString::fromStdString(entry.path().string())));
		}
		catch (ZEB::Exception & ex) {
			Checks::fail("cannot prepare the result set of the session target:\n" + ex.msgWithOrigin());
		}
	}
	~SessionFolder() {
		std::error_code ec;
		std::filesystem::remove_all(m_path, ec);
	}

	QString file(const char * name) const { return QString::fromStdString(m_path + "/" + name); }
	OVP::DataManager & dataManager() { return m_dataManager; }

private:
	std::string											m_path;
	OVP::DataManager									m_dataManager;
	std::vector<std::shared_ptr<DATAIO::DataIO> >		m_open;
};

SessionFolder * folder = nullptr;

/*! Writes the bytes to a file; a failure stops the fuzzer (every run would be meaningless). */
void writeInput(const QString & path, const std::uint8_t * data, std::size_t size) {
	QFile f(path);
	if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)
			|| f.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size)) != static_cast<qint64>(size))
		Checks::fail("cannot write the session input file " + path.toStdString());
}

} // namespace


extern "C" int LLVMFuzzerInitialize(int *, char ***) {
	DATAIOFUZZ::GuiEnvironment::start();
	static SessionFolder sessionFolder;
	folder = &sessionFolder;
	return 0;
}


extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
	DATAIOFUZZ::XMLChecks::checkMarkupScan(reinterpret_cast<const char *>(data), size);
	const QString input = folder->file("session.o2");
	writeInput(input, data, size);

	OVP::Project project;
	try {
		project.readXML(input, folder->dataManager());
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
		return 0;
	}
	const QString copy = folder->file("copy.o2");
	OVP::Project back;
	try {
		project.writeXML(copy, true);
		back.readXML(copy, folder->dataManager());
	}
	catch (ZEB::Exception & ex) {
		Checks::fail("a session that was read does not write and read back:\n" + ex.msgWithOrigin());
	}
	if (back.m_directories.size() != project.m_directories.size()
			|| back.mapperModel()->mapperCount() != project.mapperModel()->mapperCount())
		Checks::fail("a session reads back with other directories or mappers after writing");
	for (std::size_t i = 0; i < project.m_directories.size(); ++i)
		if (back.m_directories[i].m_path != project.m_directories[i].m_path)
			Checks::fail("directory " + project.m_directories[i].m_path.toStdString() + " reads back as "
						 + back.m_directories[i].m_path.toStdString());
	return 0;
}
