#ifndef Sci_PlotSpectrogramH
#define Sci_PlotSpectrogramH

#include <memory>

#include <QPen>

#include <qwt_interval.h>
#include <qwt_plot_spectrogram.h>

namespace SCI {

class ColorLookupTable;

/*! The plot item of a colour grid: paints the cells of the grid (a ColorGrid3DData) in the
	colours of a colour map over a given value range, optionally interpolated between the cell
	centres, and draws contour lines.

	The image is rendered in bands of rows by renderThreadCount() threads (0 meaning one per
	core): the calling thread and tasks on the global thread pool take the next free band until
	none is left, each writing only the rows of its bands. Colours come from a lookup table of
	the colour map over the value range (ColorLookupTable), kept until the map or the range
	changes. Pixels whose value is NaN or that lie outside the grid stay transparent.
*/
class PlotSpectrogram : public QwtPlotSpectrogram {
public:
	PlotSpectrogram();
	~PlotSpectrogram() override;

	/*! The values mapped onto the colour map; values outside are drawn in the end colours. */
	void setValueRange(const QwtInterval & range);
	const QwtInterval & valueRange() const { return m_valueRange; }

	/*! Raster data with values interpolated between cell centres (owned), used for contour lines
		and, when interpolation is enabled, for the image. */
	void setInterpolatedData(QwtRasterData * data);
	/*! Paints the image from the interpolated data instead of the plain cells. */
	void setInterpolationEnabled(bool enabled);

	/*! Pen of the contour lines; with intervalColors the line colour is taken from the colour map
		at the line's level. */
	void setContourLineStyle(const QPen & pen, bool intervalColors);
	/*! The pen of the contour line at a level. */
	QPen contourPen(double level) const override;

	/*! Drops the colour table, as the colour map or the value range may have changed. */
	void itemChanged() override;

protected:
	/*! Renders the image of area in imageSize pixels (see the class description). An invalid
		value range is reported and gives no image. */
	QImage renderImage(const QwtScaleMap & xMap, const QwtScaleMap & yMap,
					   const QRectF & area, const QSize & imageSize) const override;
	/*! Contour lines from the interpolated data when available, so that they run smoothly. */
	QwtRasterData::ContourLines renderContourLines(const QRectF & rect, const QSize & raster) const override;

private:
	/*! The colour table of the current colour map and value range, built when missing. */
	const ColorLookupTable & colorTable() const;

	QwtInterval						m_valueRange;
	std::unique_ptr<QwtRasterData>	m_interpolated;
	bool							m_interpolate = false;
	QPen							m_contourPen;
	bool							m_contourIntervalColors = false;
	/*! Built by the first render after a change, see colorTable(). */
	mutable std::unique_ptr<ColorLookupTable>	m_colorTable;
};

} // namespace SCI

#endif // Sci_PlotSpectrogramH
