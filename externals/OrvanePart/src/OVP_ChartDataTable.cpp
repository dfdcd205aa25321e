#include "OVP_ChartDataTable.h"

#include <cmath>
#include <limits>

#include <QDateTime>

#include <ZEB_Exception.h>

#include <Sci_AbstractBarSeriesModel.h>
#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>
#include <Sci_DateTimeMapping.h>

namespace OVP {

namespace {

typedef SCI::AbstractCartesianChartModel CM;

const double NaN = std::numeric_limits<double>::quiet_NaN();

/*! The name of a unit for headers; empty for the undefined unit. */
QString unitName(const ZEB::Unit & unit) {
	return unit.id() == 0 ? QString() : QString::fromStdString(unit.name());
}


/*! The name of what an axis shows: its title as the chart shows it without a trailing
	"[unit]" (the headers add the unit themselves); fallback for an axis without title.
*/
QString axisName(const CM & model, int axisPosition, const QString & unit, const QString & fallback) {
	QString title = model.axisData(axisPosition, CM::AxisTitle).toString().trimmed();
	const QString suffix = "[" + unit + "]";
	if (!unit.isEmpty() && title.endsWith(suffix))
		title = title.left(title.size() - suffix.size()).trimmed();
	return title.isEmpty() ? fallback : title;
}


/*! Coordinates along one axis as table cells: numbers, or date-time texts when the axis shows
	dates.
*/
class AxisCells {
public:
	AxisCells(const CM & model, int axisPosition) {
		if (!model.axisData(axisPosition, CM::AxisDateTimeEnabled).toBool())
			return;
		try {
			m_mapping = SCI::DateTimeMapping::ofAxis(model, axisPosition);
			m_dates = true;
		}
		catch (ZEB::Exception &) {
			// without a time unit the chart labels the axis with numbers (and warns), so does the table
		}
	}

	/*! The column's unit: none for dates. */
	QString unit(const ZEB::Unit & unit) const { return m_dates ? QString() : unitName(unit); }

	/*! Appends a coordinate to a column. */
	void append(ChartDataTable::Column & column, double value) const {
		column.m_values.append(value);
		if (!m_dates)
			return;
		column.m_texts.resize(column.m_values.size());
		if (!std::isnan(value)) {
			const QDateTime dt = m_mapping.toDateTime(value);
			column.m_texts.back() = dt.toString(dt.time().msec() == 0 ? "yyyy-MM-dd hh:mm:ss" : "yyyy-MM-dd hh:mm:ss.zzz");
		}
	}

private:
	bool					m_dates = false;
	SCI::DateTimeMapping	m_mapping;
};


/*! The coordinate of each of valueCount cells from a grid of cell centres (valueCount entries)
	or cell edges (one more); NaN where the grid is too short or missing.
*/
QVector<double> cellCoordinates(const double * grid, unsigned int gridSize, unsigned int valueCount) {
	QVector<double> c(static_cast<int>(valueCount), NaN);
	const bool edges = gridSize == valueCount + 1;
	for (unsigned int i = 0; grid != nullptr && i < valueCount && i < gridSize; ++i)
		c[static_cast<int>(i)] = edges ? 0.5*(grid[i] + grid[i + 1]) : grid[i];
	return c;
}


/*! The number of values of a line series; 0 when the model hands out no arrays. */
unsigned int lineSize(const SCI::AbstractLineSeriesModel & model, int s) {
	return model.xValues(s) == nullptr || model.yValues(s) == nullptr ? 0 : model.size(s);
}


/*! True when two line series have the same x unit and x values (NaN equal to NaN). */
bool sameXValues(const SCI::AbstractLineSeriesModel & model, int a, int b) {
	const unsigned int n = lineSize(model, a);
	if (lineSize(model, b) != n || model.xUnit(a) != model.xUnit(b))
		return false;
	const double * xa = model.xValues(a);
	const double * xb = model.xValues(b);
	for (unsigned int i = 0; i < n; ++i)
		if (xa[i] != xb[i] && !(std::isnan(xa[i]) && std::isnan(xb[i])))
			return false;
	return true;
}

} // namespace


ChartDataTable ChartDataTable::fromChart(const SCI::AbstractChartModel & model) {
	ChartDataTable table;
	if (model.seriesCount() == 0)
		return table;
	if (const SCI::AbstractLineSeriesModel * m = dynamic_cast<const SCI::AbstractLineSeriesModel *>(&model))
		table.addLineSeries(*m);
	else if (const SCI::AbstractColorGridSeriesModel * m = dynamic_cast<const SCI::AbstractColorGridSeriesModel *>(&model))
		table.addColorGrid(*m);
	else if (const SCI::AbstractVectorFieldSeriesModel * m = dynamic_cast<const SCI::AbstractVectorFieldSeriesModel *>(&model))
		table.addVectorField(*m);
	else if (const SCI::AbstractBarSeriesModel * m = dynamic_cast<const SCI::AbstractBarSeriesModel *>(&model))
		table.addBars(*m);
	return table;
}


QString ChartDataTable::text(int row, int col) const {
	const Column & c = m_columns[col];
	return row < c.m_texts.size() ? c.m_texts[row] : QString();
}


double ChartDataTable::value(int row, int col) const {
	const Column & c = m_columns[col];
	if (row >= c.m_values.size() || !text(row, col).isEmpty())
		return NaN;
	return c.m_values[row];
}


QString ChartDataTable::header(int col) const {
	const Column & c = m_columns[col];
	return c.m_unit.isEmpty() ? c.m_title : c.m_title + " [" + c.m_unit + "]";
}


void ChartDataTable::append(Column column) {
	m_rowCount = qMax(m_rowCount, qMax(column.m_values.size(), column.m_texts.size()));
	m_columns.append(std::move(column));
}


void ChartDataTable::addLineSeries(const SCI::AbstractLineSeriesModel & model) {
	// series indices grouped by their x values, groups in the order of their first series
	QVector<QVector<int> > groups;
	for (int s = 0; s < static_cast<int>(model.seriesCount()); ++s) {
		int g = 0;
		while (g < groups.size() && !sameXValues(model, groups[g].front(), s))
			++g;
		if (g == groups.size())
			groups.append(QVector<int>());
		groups[g].append(s);
	}
	const AxisCells xCells(model, CM::BottomAxis);
	for (const QVector<int> & group : groups) {
		const int first = group.front();
		Column x;
		x.m_unit = xCells.unit(model.xUnit(first));
		x.m_title = axisName(model, CM::BottomAxis, unitName(model.xUnit(first)), "x");
		const double * xv = model.xValues(first);
		for (unsigned int i = 0; i < lineSize(model, first); ++i)
			xCells.append(x, xv[i]);
		append(std::move(x));
		for (int s : group) {
			Column y;
			y.m_title = model.seriesData(s, SCI::AbstractLineSeriesModel::SeriesTitleText).toString();
			y.m_unit = unitName(model.yUnit(s));
			const double * yv = model.yValues(s);
			const unsigned int n = lineSize(model, s);
			y.m_values.reserve(static_cast<int>(n));
			for (unsigned int i = 0; i < n; ++i)
				y.m_values.append(yv[i]);
			append(std::move(y));
		}
	}
}


void ChartDataTable::addColorGrid(const SCI::AbstractColorGridSeriesModel & model) {
	const unsigned int nx = model.xValueSize(0);
	const unsigned int ny = model.yValueSize(0);
	/*! The coordinates of one direction of the grid. */
	struct Direction {
		AxisCells		m_cells;
		QString			m_name;
		QString			m_unit;
		QVector<double>	m_coordinates;
	};
	Direction x{ AxisCells(model, CM::BottomAxis), QString(), QString(),
				 cellCoordinates(model.xGrid(0), model.xGridSize(0), nx) };
	x.m_name = axisName(model, CM::BottomAxis, unitName(model.xUnit(0)), "x");
	x.m_unit = x.m_cells.unit(model.xUnit(0));
	Direction y{ AxisCells(model, CM::LeftAxis), QString(), QString(),
				 cellCoordinates(model.yGrid(0), model.yGridSize(0), ny) };
	y.m_name = axisName(model, CM::LeftAxis, unitName(model.yUnit(0)), "y");
	y.m_unit = y.m_cells.unit(model.yUnit(0));
	// the longer direction runs down the rows, so that a long time axis fits the column limit
	// of spreadsheets
	const bool transposed = nx > ny;
	const Direction & down = transposed ? x : y;
	const Direction & across = transposed ? y : x;

	// first column: the label of the first row, then the coordinates down
	Column first;
	first.m_title = down.m_name;
	first.m_unit = down.m_unit;
	first.m_values.append(NaN);
	first.m_texts.append(across.m_name + (across.m_unit.isEmpty() ? QString() : " [" + across.m_unit + "]"));
	for (double v : down.m_coordinates)
		down.m_cells.append(first, v);
	first.m_texts.resize(first.m_values.size());
	append(std::move(first));

	// one column per coordinate across: the coordinate, then the values
	const QString valueUnit = unitName(model.valueUnit(0));
	const QString valueName = axisName(model, CM::RightAxis, valueUnit, "Value");
	const double * values = model.values(0);
	for (int a = 0; values != nullptr && a < across.m_coordinates.size(); ++a) {
		Column c;
		c.m_title = valueName;
		c.m_unit = valueUnit;
		across.m_cells.append(c, across.m_coordinates[a]);
		for (int d = 0; d < down.m_coordinates.size(); ++d)
			c.m_values.append(transposed ? values[a*nx + d] : values[d*nx + a]);
		append(std::move(c));
	}
}


void ChartDataTable::addVectorField(const SCI::AbstractVectorFieldSeriesModel & model) {
	const unsigned int nx = model.xGridSize(0);
	const unsigned int ny = model.yGridSize(0);
	const AxisCells xCells(model, CM::BottomAxis);
	const AxisCells yCells(model, CM::LeftAxis);
	const QString valueUnit = unitName(model.valueUnit(0));
	Column x{ axisName(model, CM::BottomAxis, unitName(model.xUnit(0)), "x"), xCells.unit(model.xUnit(0)), {}, {} };
	Column y{ axisName(model, CM::LeftAxis, unitName(model.yUnit(0)), "y"), yCells.unit(model.yUnit(0)), {}, {} };
	Column u{ "u", valueUnit, {}, {} };
	Column v{ "v", valueUnit, {}, {} };
	Column magnitude{ "magnitude", valueUnit, {}, {} };
	const double * xg = model.xGrid(0);
	const double * yg = model.yGrid(0);
	const double * uc = model.xComponents(0);
	const double * vc = model.yComponents(0);
	// a model without arrays has no points
	const bool complete = xg != nullptr && yg != nullptr && uc != nullptr && vc != nullptr;
	for (unsigned int j = 0; complete && j < ny; ++j) {
		for (unsigned int i = 0; i < nx; ++i) {
			const unsigned int k = j*nx + i;
			xCells.append(x, xg[i]);
			yCells.append(y, yg[j]);
			u.m_values.append(uc[k]);
			v.m_values.append(vc[k]);
			magnitude.m_values.append(std::hypot(uc[k], vc[k]));
		}
	}
	for (Column * c : { &x, &y, &u, &v, &magnitude })
		append(std::move(*c));
}


void ChartDataTable::addBars(const SCI::AbstractBarSeriesModel & model) {
	Column labels;
	labels.m_title = axisName(model, CM::BottomAxis, QString(), "Bar");
	for (unsigned int b = 0; b < model.barCount(); ++b) {
		labels.m_values.append(NaN);
		labels.m_texts.append(model.barLabel(b));
	}
	append(std::move(labels));
	const QString unit = unitName(model.yUnit());
	for (int s = 0; s < static_cast<int>(model.seriesCount()); ++s) {
		Column c;
		c.m_title = model.seriesData(s, SCI::AbstractBarSeriesModel::BarTitleText).toString();
		c.m_unit = unit;
		for (unsigned int b = 0; b < model.barCount(); ++b)
			c.m_values.append(model.barValue(s, b));
		append(std::move(c));
	}
}

} // namespace OVP
