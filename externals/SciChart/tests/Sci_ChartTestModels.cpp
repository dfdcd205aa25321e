#include "Sci_ChartTestModels.h"

#include <cstdlib>

#include <QCoreApplication>
#include <QWidget>

namespace SciTest {

void VectorLineModel::addSeries(const Series & s) {
	const int index = static_cast<int>(m_series.size());
	beginInsertSeries(index, index);
	m_series.push_back(s);
	endInsertSeries();
}


void VectorLineModel::insertSeries(int index, int count) {
	beginInsertSeries(index, index + count - 1);
	m_series.insert(m_series.begin() + index, static_cast<std::size_t>(count), Series());
	endInsertSeries();
}


void VectorLineModel::removeSeries(int index, int count) {
	beginRemoveSeries(index, index + count - 1);
	m_series.erase(m_series.begin() + index, m_series.begin() + index + count);
	endRemoveSeries();
}


void VectorLineModel::changeSeries(int index, const Series & s) {
	beginChangeSeries(index, index);
	m_series[static_cast<std::size_t>(index)] = s;
	endChangeSeries();
}


void VectorGridModel::setGrid(const std::vector<double> & xGrid, const std::vector<double> & yGrid,
							  unsigned int nx, unsigned int ny, double (*f)(unsigned int, unsigned int))
{
	beginInsertSeries(0, 0);
	m_xGrid = xGrid;
	m_yGrid = yGrid;
	m_nx = nx;
	m_ny = ny;
	m_values.clear();
	for (unsigned int j = 0; j < ny; ++j)
		for (unsigned int i = 0; i < nx; ++i)
			m_values.push_back(f(i, j));
	m_hasGrid = true;
	endInsertSeries();
}


void VectorGridModel::setSmallGrid() {
	setGrid({0, 0.1, 0.3, 0.6}, {0, 1, 2}, 3, 2, [](unsigned int i, unsigned int j) {
		static const double values[] = {5, -2, 7, 1, 9.5, 3};
		return values[3*j + i];
	});
}


void VectorFieldTestModel::setField(const std::vector<double> & x, const std::vector<double> & y,
									const std::vector<double> & u, const std::vector<double> & v)
{
	beginInsertSeries(0, 0);
	m_x = x;
	m_y = y;
	m_u = u;
	m_v = v;
	m_hasField = true;
	endInsertSeries();
}


QImage renderCanvas(SCI::Chart & chart, const QSize & size) {
	chart.resize(size);
	chart.show();
	QCoreApplication::processEvents();
	chart.replot();
	return chart.canvas()->grab().toImage();
}


void setAxisRange(SCI::AbstractCartesianChartModel & model, int axisPosition, double minimum, double maximum) {
	typedef SCI::AbstractCartesianChartModel CM;
	model.setAxisData(minimum, axisPosition, CM::AxisMinimum);
	model.setAxisData(maximum, axisPosition, CM::AxisMaximum);
	model.setAxisData(false, axisPosition, CM::AxisAutoscale);
}


bool similarColor(QRgb a, QRgb b, int tolerance) {
	return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
			std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

} // namespace SciTest
