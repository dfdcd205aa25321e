#ifndef DataManagerPanelH
#define DataManagerPanelH

#include <QString>
#include <QWidget>

class QLineEdit;
class QSplitter;
class QTableView;

namespace OVP {
class DataManagerFilterModel;
class DataManagerTableModel;
class DataSetOptions;
class DataSetOptionsWidget;
}

/*! The data manager in the west panel: the files of the checked folders as a table, with a
	filter line above it, and the options of the selected data sets beside it.

	The table shows OVP::DataManagerTableModel through OVP::DataManagerFilterModel: every column
	sorts on a header click (until then the files keep their insertion order), several rows can
	be selected, and selected rows are dragged as OVP::DataSetMimeData. The filter text goes to
	the filter model. The selected rows become the selection of the options; the option panel
	sits right of the table, or below it while the panel is narrower than WIDE_LAYOUT_WIDTH.
	"Create chart" (also Enter in the table) and "Add to current chart" are announced. The context
	menu of a field or flux file converts it (ConvertDialog).
*/
class DataManagerPanel : public QWidget {
	Q_OBJECT
public:
	/*! Space above and below the text of a table row, in pixels. */
	static constexpr int ROW_MARGIN = 4;

	/*! Widest a column gets when fitted to its contents, in pixels; longer texts are elided. */
	static constexpr int MAX_COLUMN_WIDTH = 220;

	/*! Narrowest panel that shows the options right of the table, in pixels. */
	static constexpr int WIDE_LAYOUT_WIDTH = 760;

	/*! A panel over model, which must outlive it. */
	explicit DataManagerPanel(OVP::DataManagerTableModel * model, QWidget * parent = nullptr);
	~DataManagerPanel() override;

	QLineEdit * filterEdit() const { return m_filterEdit; }
	QTableView * tableView() const { return m_tableView; }
	/*! The options of the selected data sets. */
	OVP::DataSetOptions & options() const { return *m_options; }
	OVP::DataSetOptionsWidget * optionsWidget() const { return m_optionsWidget; }

public slots:
	/*! Selects the row of a file (and only it), now or, while headers are still read, once its
		row appears; a file that is not listed in the end is not selected.
	*/
	void selectFile(const QString & path);

signals:
	/*! The user asked to create a chart of the selection. */
	void createChartRequested();
	/*! The user asked to add the selection to the current chart. */
	void addToChartRequested();

protected:
	/*! Enter in the table asks for a chart when the selection makes one; the table reached by
		keyboard (Tab, or Down in the filter line) selects its current or first row.
	*/
	bool eventFilter(QObject * watched, QEvent * event) override;
	/*! Puts the options beside or below the table, as the width allows, and fits them. */
	void resizeEvent(QResizeEvent * event) override;

private:
	/*! Fits the columns to their contents up to MAX_COLUMN_WIDTH, the path column taking the rest. */
	void fitColumns();
	/*! Gives the options the room they ask for, up to half of the panel, the table the rest;
		with keepLarger, options that have more room already keep it.
	*/
	void fitOptions(bool keepLarger);
	/*! Hands the data sets of the selected rows to the options. */
	void onSelectionChanged();
	/*! Selects the file waiting for its row once the row is there. */
	void selectWaitingFile();
	/*! The context menu of a table row: "Convert to Tecplot..." and "Write slice..." for files
		of values over a construction grid.
	*/
	void showContextMenu(const QPoint & position);
	/*! Reads a file with its geometry and opens the convert dialog of the mode on it; a file
		that cannot be read gets a message.
	*/
	void openConvertDialog(const QString & path, int mode);

	OVP::DataManagerTableModel *	m_model;
	OVP::DataManagerFilterModel *	m_filterModel;
	OVP::DataSetOptions *			m_options;
	QLineEdit *						m_filterEdit;
	QTableView *					m_tableView;
	OVP::DataSetOptionsWidget *		m_optionsWidget;
	QSplitter *						m_splitter;
	/*! The file whose row is selected once it appears; empty when none waits. */
	QString							m_fileToSelect;
};

#endif // DataManagerPanelH
