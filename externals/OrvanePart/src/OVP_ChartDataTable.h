#ifndef OVP_ChartDataTableH
#define OVP_ChartDataTableH

#include <QString>
#include <QVector>

namespace SCI {
class AbstractChartModel;
class AbstractLineSeriesModel;
class AbstractColorGridSeriesModel;
class AbstractVectorFieldSeriesModel;
class AbstractBarSeriesModel;
}

namespace OVP {

/*! The data of a chart as a table of columns, copied from the chart model's abstract series
	interface, so that it works for every chart kind:
	- line charts: the series are grouped by their x values (series with equal x values share
	  one x column); each group gives its x column followed by one column per series; shorter
	  columns end early;
	- colour grids: a matrix: the first column holds the y coordinates, the first row the x
	  coordinates (of the cell centres for grids given by their cell edges), the other cells
	  the values; a grid with more cells in x than in y is turned, x running down the rows, so
	  that a long time axis fits the column limit of spreadsheets;
	- vector fields: one row per point with the columns x, y, u, v and magnitude;
	- bar charts: one row per bar position with its label, one column per series.
	Columns have a title and a unit name (empty when there is none). Coordinates on a date-time
	axis are texts ("2015-01-01 01:00:00") as the axis labels them; a value that is not a number
	(a gap) is an empty cell.
*/
class ChartDataTable {
public:
	/*! One column. A cell holds a text when m_texts has one for its row, else a number when the
		row is below the size of m_values, else nothing.
	*/
	struct Column {
		QString			m_title;
		QString			m_unit;
		QVector<double>	m_values;
		/*! Empty, or texts by row (an empty text: the number counts). */
		QVector<QString>	m_texts;
	};

	/*! The table of a chart model's data; empty for a model without series. */
	static ChartDataTable fromChart(const SCI::AbstractChartModel & model);

	int columnCount() const { return m_columns.size(); }
	/*! Length of the longest column. */
	int rowCount() const { return m_rowCount; }
	const Column & column(int c) const { return m_columns[c]; }

	/*! The text of a cell, empty when it holds a number or nothing. */
	QString text(int row, int col) const;
	/*! The number of a cell; NaN when it holds a text, nothing or a gap. */
	double value(int row, int col) const;
	/*! The header "Title [unit]", or "Title" without unit. */
	QString header(int col) const;

private:
	/*! Appends a column and keeps the row count. */
	void append(Column column);

	void addLineSeries(const SCI::AbstractLineSeriesModel & model);
	void addColorGrid(const SCI::AbstractColorGridSeriesModel & model);
	void addVectorField(const SCI::AbstractVectorFieldSeriesModel & model);
	void addBars(const SCI::AbstractBarSeriesModel & model);

	QVector<Column>	m_columns;
	int				m_rowCount = 0;
};

} // namespace OVP

#endif // OVP_ChartDataTableH
