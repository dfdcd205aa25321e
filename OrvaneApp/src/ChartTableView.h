#ifndef ChartTableViewH
#define ChartTableViewH

#include <QTableView>

namespace OVP {
class ChartDataTableModel;
}

namespace SCI {
class AbstractChartModel;
}

/*! The data of a chart as a table (OVP::ChartDataTableModel), shown in a split view instead of
	the chart. Its context menu copies the selected rows and columns or all data as
	tab-separated text (Ctrl+C copies the selection), exports the data to a CSV or TSV file
	and switches back to the chart. Copies and files follow the export settings; the file
	name comes through the project handler's user interaction, failures are shown there.
*/
class ChartTableView : public QTableView {
	Q_OBJECT
public:
	/*! Columns fitted to their contents when the table is filled anew, at the most. */
	static constexpr int MAX_FITTED_COLUMNS = 100;
	/*! Width of a fitted column at the most, in characters. */
	static constexpr int MAX_FITTED_CHARACTERS = 24;

	explicit ChartTableView(QWidget * parent = nullptr);

	/*! Shows the data of a chart model (null: none). */
	void setChartModel(SCI::AbstractChartModel * chartModel);
	OVP::ChartDataTableModel * tableModel() const { return m_model; }
	/*! Name offered for exported files, without extension. */
	void setExportName(const QString & name) { m_exportName = name; }

public slots:
	void copySelection();
	void copyAll();
	/*! Asks for a file and writes the data to it: tab-separated for ".tsv" and ".txt", CSV
		otherwise; a name without extension gets ".csv".
	*/
	void exportData();

signals:
	/*! The user asked for the chart instead of the table. */
	void showChartRequested();

protected:
	void contextMenuEvent(QContextMenuEvent * event) override;
	void keyPressEvent(QKeyEvent * event) override;

private slots:
	/*! Fits the widths of the first columns to their headers and first rows. */
	void fitColumns();

private:
	OVP::ChartDataTableModel *	m_model;
	QString						m_exportName;
};

#endif // ChartTableViewH
