#include "DroppedFileOpener.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeData>

#include <OVP_DataSetMimeData.h>
#include <OVP_DirectoryTreeModel.h>
#include <OVP_ProjectHandler.h>
#include <OVP_Settings.h>
#include <OVP_UserInteraction.h>

#include "DataManagerPanel.h"
#include "MainView.h"
#include "SessionPanel.h"

DroppedFileOpener::DroppedFileOpener(MainView & mainView, SessionPanel & sessionPanel) :
	m_mainView(mainView),
	m_sessionPanel(sessionPanel)
{
}


bool DroppedFileOpener::accepts(const QMimeData * data) {
	// data sets dragged from the data manager carry their files as URLs, too; they are not opened
	return data != nullptr && data->hasUrls() && !data->hasFormat(OVP::DataSetMimeData::MIME_TYPE);
}


void DroppedFileOpener::open(const QList<QUrl> & urls) {
	for (const QUrl & url : urls) {
		if (url.isLocalFile())
			openPath(url.toLocalFile());
		else
			OVP::ProjectHandler::instance().userInteraction().showCritical(&m_mainView, tr("Cannot open dropped file"),
				tr("'%1' is not a local file or folder; nothing was opened.").arg(url.toString()));
	}
}


void DroppedFileOpener::openPath(const QString & path) {
	const QFileInfo info(path);
	const QStringList & resultPatterns = OVP::Settings::instance().m_fileNameFilter;
	if (info.isFile() && info.suffix().compare("o2", Qt::CaseInsensitive) == 0) {
		m_mainView.openSession(info.absoluteFilePath());
	}
	else if (info.isFile() && QDir::match(resultPatterns, info.fileName())) {
		if (m_sessionPanel.directoryModel()->checkDirectory(info.absolutePath()))
			m_sessionPanel.dataManager()->selectFile(info.absoluteFilePath());
	}
	else if (info.isDir()) {
		m_sessionPanel.directoryModel()->addDirectory(info.absoluteFilePath());
	}
	else {
		OVP::ProjectHandler::instance().userInteraction().showCritical(&m_mainView, tr("Cannot open dropped file"),
			tr("'%1' is neither a session file (*.o2), a result file (%2) nor a folder; nothing was opened.")
			.arg(path, resultPatterns.join(' ')));
	}
}
