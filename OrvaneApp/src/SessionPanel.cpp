#include "SessionPanel.h"

#include <QSplitter>
#include <QVBoxLayout>

#include <OVP_DataManagerTableModel.h>
#include <OVP_DirectoryTreeModel.h>
#include <OVP_ProjectHandler.h>

#include "DataManagerPanel.h"
#include "DirectoryTreeView.h"
#include "MapperTreeView.h"

SessionPanel::SessionPanel(QWidget * parent) :
	QWidget(parent),
	m_directoryModel(new OVP::DirectoryTreeModel(OVP::ProjectHandler::instance(), this)),
	m_fileModel(new OVP::DataManagerTableModel(this))
{
	m_directoryView = new DirectoryTreeView(m_directoryModel);
	m_dataManager = new DataManagerPanel(m_fileModel);
	m_mapperView = new MapperTreeView;

	m_splitter = new QSplitter(Qt::Vertical, this);
	m_splitter->setChildrenCollapsible(false);
	m_splitter->addWidget(m_directoryView);
	m_splitter->addWidget(m_dataManager);
	m_splitter->addWidget(m_mapperView);
	// the file table gets most of the height
	m_splitter->setStretchFactor(0, 1);
	m_splitter->setStretchFactor(1, 2);
	m_splitter->setStretchFactor(2, 1);
	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->setContentsMargins(0, 0, 0, 0);
	layout->addWidget(m_splitter);

	connect(m_directoryModel, &OVP::DirectoryTreeModel::directoryChecked, this, &SessionPanel::onDirectoryChecked);
	connect(m_directoryModel, &OVP::DirectoryTreeModel::directoryUnchecked,
			m_fileModel, &OVP::DataManagerTableModel::removeDirectory);
	connect(m_directoryModel, &QAbstractItemModel::dataChanged, this, &SessionPanel::syncColors);
	// the directory model follows a new session first: it was connected to the handler first
	connect(&OVP::ProjectHandler::instance(), &OVP::ProjectHandler::projectChanged,
			this, &SessionPanel::syncListedDirectories);
	syncListedDirectories();
}


SessionPanel::~SessionPanel() = default;


void SessionPanel::onDirectoryChecked(const QString & path) {
	m_fileModel->addDirectory(path, m_directoryModel->colorOf(path));
}


void SessionPanel::syncListedDirectories() {
	m_fileModel->setListedDirectories(m_directoryModel->checkedDirectories());
	syncColors();
}


void SessionPanel::syncColors() {
	for (const QString & path : m_fileModel->listedDirectories())
		m_fileModel->setDirectoryColor(path, m_directoryModel->colorOf(path));
}
