#ifndef Sci_PlotCurveH
#define Sci_PlotCurveH

#include <qwt_plot_curve.h>

namespace SCI {

/*! The curve of a line series. Compared to the library's curve it leaves gaps where a point
	cannot be drawn (a value that is not finite, or not positive on a logarithmic axis) instead
	of drawing lines to nowhere, takes only drawable points into account for autoscaling, and
	offers two legend icons: a line sample with the marker, or a box in the line colour. The
	legend entry of a hidden curve is greyed.
*/
class PlotCurve : public QwtPlotCurve {
public:
	/*! Legend icon styles, numbered as the chart property LegendIconStyle. */
	enum IconStyle {
		IconLine	= 0,	///< a piece of the line with the marker in its middle
		IconBox		= 1		///< a box filled with the line colour
	};

	explicit PlotCurve(const QString & title = QString());

	/*! Sets the legend icon style (an IconStyle; other numbers give the line sample). */
	void setLegendIconStyle(int style);

	/*! Bounding rectangle of the points that can be drawn with the current axis scales. */
	QRectF boundingRect() const override;

	/*! Draws the points from..to, split into runs of drawable points. */
	void drawSeries(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
					const QRectF & canvasRect, int from, int to) const override;

	QwtGraphic legendIcon(int index, const QSizeF & size) const override;
	/*! The legend entry, with the title greyed while the curve is hidden. */
	QList<QwtLegendData> legendData() const override;

protected:
	/*! Draws the points from..to in the given style. Fitted lines are fitted over exactly
		these points: the library would fit over the whole curve, bridging the gaps. Lines on a
		pixel raster, and lines thinned for drawing, are drawn through at most four points per
		pixel column (pixelColumnPolyline()), which gives the same picture as every point. */
	void drawCurve(QPainter * painter, int style, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
				   const QRectF & canvasRect, int from, int to) const override;

private:
	/*! Draws points from..to as lines through the points of their pixel columns, thinned further
		by the data reduction fitter when it is set. Returns false, drawing nothing, for curves
		whose lines it does not draw: spline fits, other data than CurveData, painters whose
		picture is no pixel raster (vector exports keep every point unless thinned), and rotated
		or sheared painters. */
	bool drawColumnLines(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
						 const QRectF & canvasRect, int from, int to) const;

	/*! Draws the vertical spans of the pixel columns a thinned line runs up and down in (see
		columnSpans()); with an antialiasing painter and an opaque solid pen as the bands of two
		device pixels in the pen colour that the line through every point paints there.
	*/
	void drawColumnSpans(QPainter * painter, const QVector<QLineF> & spans, double scale) const;

	int	m_iconStyle = IconLine;
};

} // namespace SCI

#endif // Sci_PlotCurveH
