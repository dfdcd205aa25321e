#ifndef DataManagerPanelH
#define DataManagerPanelH

#include <QWidget>

class QLineEdit;
class QTableView;

namespace OVP {
class DataManagerFilterModel;
class DataManagerTableModel;
}

/*! The data manager in the west panel: the files of the checked folders as a table, with a
	filter line above it.

	The table shows OVP::DataManagerTableModel through OVP::DataManagerFilterModel: every column
	sorts on a header click (until then the files keep their insertion order), several rows can
	be selected, and selected rows are dragged as OVP::DataSetMimeData. The filter text goes to
	the filter model.
*/
class DataManagerPanel : public QWidget {
	Q_OBJECT
public:
	/*! Space above and below the text of a table row, in pixels. */
	static constexpr int ROW_MARGIN = 4;

	/*! Widest a column gets when fitted to its contents, in pixels; longer texts are elided. */
	static constexpr int MAX_COLUMN_WIDTH = 220;

	/*! A panel over model, which must outlive it. */
	explicit DataManagerPanel(OVP::DataManagerTableModel * model, QWidget * parent = nullptr);

	QLineEdit * filterEdit() const { return m_filterEdit; }
	QTableView * tableView() const { return m_tableView; }

private:
	/*! Fits the columns to their contents up to MAX_COLUMN_WIDTH, the path column taking the rest. */
	void fitColumns();

	OVP::DataManagerFilterModel *	m_filterModel;
	QLineEdit *						m_filterEdit;
	QTableView *					m_tableView;
};

#endif // DataManagerPanelH
