#ifndef SessionPanelH
#define SessionPanelH

#include <QWidget>

class QSplitter;
class DataManagerPanel;
class DirectoryTreeView;
class MapperTreeView;

namespace OVP {
class DataManagerTableModel;
class DirectoryTreeModel;
}

/*! The west panel of the main window: the session's directories (top), the data manager with
	the files of the checked folders (middle) and the session's charts (bottom), one above the
	other in a splitter.

	It owns the directory and file models and keeps the file table listing exactly the checked
	folders, each with its user colour.
*/
class SessionPanel : public QWidget {
	Q_OBJECT
public:
	explicit SessionPanel(QWidget * parent = nullptr);
	~SessionPanel() override;

	OVP::DirectoryTreeModel * directoryModel() const { return m_directoryModel; }
	OVP::DataManagerTableModel * fileModel() const { return m_fileModel; }
	DirectoryTreeView * directoryView() const { return m_directoryView; }
	DataManagerPanel * dataManager() const { return m_dataManager; }
	MapperTreeView * mapperView() const { return m_mapperView; }

private:
	/*! Lists the files of a folder that became checked, with its colour. */
	void onDirectoryChecked(const QString & path);
	/*! Lists the checked folders of the session anew, each with its colour. */
	void syncListedDirectories();
	/*! Gives every listed folder its current colour. */
	void syncColors();

	OVP::DirectoryTreeModel *		m_directoryModel;
	OVP::DataManagerTableModel *	m_fileModel;
	QSplitter *						m_splitter;
	DirectoryTreeView *				m_directoryView;
	DataManagerPanel *				m_dataManager;
	MapperTreeView *				m_mapperView;
};

#endif // SessionPanelH
