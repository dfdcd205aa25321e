#ifndef OVP_ChartDataTableModelH
#define OVP_ChartDataTableModelH

#include <QAbstractTableModel>
#include <QPointer>

#include <Sci_AbstractChartModel.h>

#include "OVP_ChartDataTable.h"
#include "OVP_ChartDataText.h"

namespace OVP {

/*! The data of a chart as a table model for a table view (layout see ChartDataTable). It
	follows the chart model's data signals (series changed, inserted, removed, model reset,
	axis changes, series titles), so that the table shows what the chart shows: a table of the
	same width is updated in place (rows added or removed at its end), so that the view keeps
	its selection and position while a running simulation adds time points; a new width resets
	the model. Changes inside a batch of the chart model (modelAboutToBeChanged/modelChanged)
	are taken once at its end.

	Cells show numbers with a fixed number of decimal places (very small and very large numbers
	in exponent form); Qt::EditRole gives the number itself, ValueRole as well, NaN for texts
	and gaps.
*/
class ChartDataTableModel : public QAbstractTableModel {
	Q_OBJECT
public:
	/*! Data role of the cell's number (double, NaN for texts and gaps). */
	static constexpr int ValueRole = Qt::UserRole;

	explicit ChartDataTableModel(QObject * parent = nullptr);

	/*! Shows the data of a chart model (null: nothing); the model may be deleted any time. */
	void setChartModel(SCI::AbstractChartModel * chartModel);
	SCI::AbstractChartModel * chartModel() const { return m_chartModel.data(); }
	/*! Decimal places of the numbers shown (not of copied or exported numbers). */
	void setDecimalPlaces(int decimalPlaces);

	const ChartDataTable & table() const { return m_table; }

	int rowCount(const QModelIndex & parent = QModelIndex()) const override;
	int columnCount(const QModelIndex & parent = QModelIndex()) const override;
	QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
	/*! Horizontal: "Title [unit]" (also as tool tip); vertical: row numbers from 1. */
	QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

	/*! The rows and columns of the given cells (a rectangle or not), in table order, as text. */
	QString selectionText(const QModelIndexList & cells, const ChartDataText::Format & format) const;

	/*! A number as shown in the table, in the number format of the user's language without
		group separators: decimalPlaces places, exponent form below 10^-decimalPlaces and from
		10^15 on; empty for NaN.
	*/
	static QString displayNumber(double value, int decimalPlaces);

public slots:
	/*! Copies the chart model's data again and tells the views what changed. */
	void refresh();

private slots:
	/*! Refreshes unless a batch of changes is open. */
	void onDataChanged();
	void onAxisChanged(int axisPosition, int role);
	void onSeriesViewChanged(int start, int end, int role);
	void onBatchStarted() { m_inBatch = true; }
	void onBatchEnded();

private:
	QPointer<SCI::AbstractChartModel>	m_chartModel;
	ChartDataTable						m_table;
	int									m_decimalPlaces = 6;
	/*! A batch of changes of the chart model is open. */
	bool								m_inBatch = false;
};

} // namespace OVP

#endif // OVP_ChartDataTableModelH
