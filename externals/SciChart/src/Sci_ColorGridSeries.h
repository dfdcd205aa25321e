#ifndef Sci_ColorGridSeriesH
#define Sci_ColorGridSeriesH

#include <vector>

#include <qwt_interval.h>

#include "Sci_ChartSeries.h"

namespace SCI {

class AbstractColorGridSeriesModel;
class PlotSpectrogram;

/*! The colour grid of a chart: holds the x grid, the y grid and the values of the grid of a
	colour grid model and draws them with a PlotSpectrogram. A grid direction holds either one
	coordinate per cell (cell centres; a cell then reaches half-way to its neighbours) or one
	more (cell edges).
*/
class ColorGridSeries : public ChartSeries {
public:
	/*! Image display modes, numbered as the model's DisplayMode. */
	enum DisplayMode {
		DisplayContoursOnly	= 0,	///< no colour image, only contour lines
		DisplayColorImage	= 1		///< colour image (and contour lines when an interval is set)
	};
	/*! Interpolation modes, numbered as the model's InterpolationMode. */
	enum InterpolationMode {
		InterpolationNone		= 0,	///< each cell in one colour
		InterpolationBilinear	= 1		///< colours blend between the cell centres
	};
	/*! Most contour levels drawn; a finer contour interval is ignored (and reported). */
	static constexpr int MAXIMUM_CONTOUR_LEVELS = 500;

	explicit ColorGridSeries(const AbstractColorGridSeriesModel * model);

	/*! Reads grid and values of the model's colour grid (seriesIndex 0) and passes them to
		setData(). Throws ZEB::Exception for missing or inconsistent data. */
	void updateData(int seriesIndex) override;
	/*! Applies one colour grid role of the model (-1: all): colour map, value range,
		interpolation, display mode and contour lines. */
	void updateProperty(int seriesIndex, int role) override;

	/*! Sets the grid: xGrid with xValueCount or xValueCount + 1 entries, likewise yGrid, and
		xValueCount*yValueCount values, x index fastest. Throws ZEB::Exception, leaving the
		previous data in place, when sizes do not fit or coordinates do not ascend.
	*/
	void setData(const std::vector<double> & xGrid, const std::vector<double> & yGrid, std::vector<double> values,
				 int xValueCount, int yValueCount);

	/*! The value range drawn, from the model (may be invalid). */
	QwtInterval valueRange() const;
	PlotSpectrogram * spectrogram() const;

private:
	/*! Contour levels at multiples of the contour interval inside the value range. */
	void updateContourLevels();

	const AbstractColorGridSeriesModel *	m_model;
};

} // namespace SCI

#endif // Sci_ColorGridSeriesH
