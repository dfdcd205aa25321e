#ifndef Sci_ChartTestModelsH
#define Sci_ChartTestModelsH

#include <vector>

#include <QImage>
#include <QSize>

#include <ZEB_Unit.h>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>
#include <Sci_Chart.h>

namespace SciTest {

/*! Line model with series given as value vectors and units. */
class VectorLineModel : public SCI::AbstractLineSeriesModel {
public:
	struct Series {
		std::vector<double>	m_x = {0, 1, 2};
		std::vector<double>	m_y = {20, 21, 19};
		ZEB::Unit			m_xUnit = ZEB::Unit("h");
		ZEB::Unit			m_yUnit = ZEB::Unit("C");
	};

	/*! A model with seriesCount default series of three points. */
	explicit VectorLineModel(int seriesCount = 0) : m_series(static_cast<std::size_t>(seriesCount)) {}

	unsigned int seriesCount() const override { return static_cast<unsigned int>(m_series.size()); }
	unsigned int size(int i) const override { return static_cast<unsigned int>(m_series[i].m_x.size()); }
	const double * xValues(int i) const override { return m_series[i].m_x.data(); }
	const double * yValues(int i) const override { return m_series[i].m_y.data(); }
	ZEB::Unit xUnit(int i) const override { return m_series[i].m_xUnit; }
	ZEB::Unit yUnit(int i) const override { return m_series[i].m_yUnit; }

	/*! Appends a series inside the insertion bracket. */
	void addSeries(const Series & s);
	/*! Inserts count default series at index inside the insertion bracket. */
	void insertSeries(int index, int count);
	/*! Removes count series from index inside the removal bracket. */
	void removeSeries(int index, int count = 1);
	/*! Replaces the data of a series inside the change bracket. */
	void changeSeries(int index, const Series & s);

	std::vector<Series>	m_series;
};

/*! Colour grid model with grid, values and units as members. */
class VectorGridModel : public SCI::AbstractColorGridSeriesModel {
public:
	/*! Without grid, or with the small grid of setSmallGrid(). */
	explicit VectorGridModel(bool smallGrid = false) {
		if (smallGrid)
			setSmallGrid();
	}
	unsigned int seriesCount() const override { return m_hasGrid ? 1 : 0; }
	unsigned int xGridSize(int) const override { return static_cast<unsigned int>(m_xGrid.size()); }
	const double * xGrid(int) const override { return m_xGrid.data(); }
	unsigned int yGridSize(int) const override { return static_cast<unsigned int>(m_yGrid.size()); }
	const double * yGrid(int) const override { return m_yGrid.data(); }
	unsigned int xValueSize(int) const override { return m_nx; }
	unsigned int yValueSize(int) const override { return m_ny; }
	const double * values(int) const override { return m_values.data(); }
	ZEB::Unit xUnit(int) const override { return m_xUnit; }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit valueUnit(int) const override { return ZEB::Unit("C"); }

	/*! Sets a grid of nx x ny cells with the given coordinates and values f(i, j), announced as
		insertion of the grid. */
	void setGrid(const std::vector<double> & xGrid, const std::vector<double> & yGrid, unsigned int nx,
				 unsigned int ny, double (*f)(unsigned int, unsigned int));
	/*! Sets the 3 x 2 grid with cell edges x 0, 0.1, 0.3, 0.6 and y 0, 1, 2 and the values
		5, -2, 7 (first row) and 1, 9.5, 3. */
	void setSmallGrid();

	bool				m_hasGrid = false;
	std::vector<double>	m_xGrid;
	std::vector<double>	m_yGrid;
	std::vector<double>	m_values;
	unsigned int		m_nx = 0;
	unsigned int		m_ny = 0;
	ZEB::Unit			m_xUnit = ZEB::Unit("m");
};

/*! Vector field model with grid and components as members. */
class VectorFieldTestModel : public SCI::AbstractVectorFieldSeriesModel {
public:
	/*! Without field, or with the small field of setSmallField(). */
	explicit VectorFieldTestModel(bool smallField = false) {
		if (smallField)
			setSmallField();
	}
	unsigned int seriesCount() const override { return m_hasField ? 1 : 0; }
	unsigned int xGridSize(int) const override { return static_cast<unsigned int>(m_x.size()); }
	const double * xGrid(int) const override { return m_x.data(); }
	unsigned int yGridSize(int) const override { return static_cast<unsigned int>(m_y.size()); }
	const double * yGrid(int) const override { return m_y.data(); }
	const double * xComponents(int) const override { return m_u.data(); }
	const double * yComponents(int) const override { return m_v.data(); }
	ZEB::Unit xUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit valueUnit(int) const override { return ZEB::Unit("W/m2"); }

	/*! Sets the field, announced as insertion. */
	void setField(const std::vector<double> & x, const std::vector<double> & y,
				  const std::vector<double> & u, const std::vector<double> & v);
	/*! Sets a 2 x 2 field of the magnitudes 5, 0, 1 and 0.5. */
	void setSmallField() { setField({0, 1}, {0, 1}, {3, 0, -1, 0}, {4, 0, 0, 0.5}); }

	bool				m_hasField = false;
	std::vector<double>	m_x, m_y, m_u, m_v;
};

/*! A chart that counts its redraws. */
class CountingChart : public SCI::Chart {
public:
	void replot() override {
		++m_replots;
		SCI::Chart::replot();
	}
	int	m_replots = 0;
};

/*! Lays the chart out in the given size, draws it and returns the picture of its canvas. */
QImage renderCanvas(SCI::Chart & chart, const QSize & size);

/*! Fixed axis range for an axis of a model, autoscale off. */
void setAxisRange(SCI::AbstractCartesianChartModel & model, int axisPosition, double minimum, double maximum);

/*! True when the colours differ by at most tolerance in every channel. */
bool similarColor(QRgb a, QRgb b, int tolerance);

} // namespace SciTest

#endif // Sci_ChartTestModelsH
