#ifndef Sci_PlotVectorFieldH
#define Sci_PlotVectorFieldH

#include <memory>
#include <vector>

#include <QColor>

#include <qwt_interval.h>
#include <qwt_plot_item.h>

class QwtColorMap;

namespace SCI {

/*! Plot item that draws a vector field as arrows: either at every point of the field's grid, or
	on a regular raster of canvas pixels with the vectors interpolated bilinearly between the
	grid points. The arrow direction follows the vector as drawn on screen (x to the right, y
	upwards), its length grows with the magnitude (magnitudeScaleFactor() pixels per magnitude
	unit) within the minimum and maximum arrow length, and its colour comes from a colour map
	over a magnitude range, or is one uniform colour.
*/
class PlotVectorField : public QwtPlotItem {
public:
	/*! Where an arrow sits relative to its point, numbered as the model's IndicatorOrigin. */
	enum IndicatorOrigin {
		OriginHead		= 0,	///< the arrow ends at the point
		OriginTail		= 1,	///< the arrow starts at the point
		OriginCenter	= 2		///< the arrow is centred on the point
	};
	/*! Run-time type of the item. */
	enum { Rtti_PlotVectorField = QwtPlotItem::Rtti_PlotUserItem + 1 };

	/*! An empty field; arrows are at most 50 and at least 0 pixels long. */
	PlotVectorField();
	~PlotVectorField() override;

	int rtti() const override { return Rtti_PlotVectorField; }

	/*! The field: points (x[i], y[j]) with components u and v at index j*x.size() + i.
		x and y ascend; u and v hold x.size()*y.size() values (not checked here). */
	void setField(const std::vector<double> & x, const std::vector<double> & y,
				  const std::vector<double> & u, const std::vector<double> & v);

	/*! Colour map for coloured arrows (owned). */
	void setColorMap(QwtColorMap * colorMap);
	/*! Magnitudes mapped onto the colour map. */
	void setMagnitudeRange(const QwtInterval & range);
	/*! Colour from the colour map, or the uniform colour for all arrows. */
	void setColoredArrows(bool colored);
	void setUniformColor(const QColor & color);

	/*! Arrows on a raster of spacing pixels (at least 2) instead of at the grid points. */
	void setRaster(bool enabled, int spacing);
	void setIndicatorOrigin(int origin);
	/*! Thin arrows are lines with an open head, others filled shapes. */
	void setThinArrows(bool thin);

	/*! Arrow length in pixels per unit of magnitude, before clamping. */
	void setMagnitudeScaleFactor(double pixelsPerUnit);
	double magnitudeScaleFactor() const { return m_magnitudeScaleFactor; }
	void setMaxArrowLength(double pixels);
	double maxArrowLength() const { return m_maxArrowLength; }
	void setMinArrowLength(double pixels);
	double minArrowLength() const { return m_minArrowLength; }

	/*! Length in pixels of the arrow of a vector of the given magnitude: magnitude times the
		scale factor, clamped to the minimum and maximum length; a length of 0 (and anything that
		is not a positive number) stays 0, no arrow is drawn.
	*/
	double arrowLength(double magnitude) const;

	/*! The grid's extent. */
	QRectF boundingRect() const override;

	void draw(QPainter * painter, const QwtScaleMap & xMap, const QwtScaleMap & yMap,
			  const QRectF & canvasRect) const override;

private:
	/*! Vector at plot position (x, y) by bilinear interpolation; false outside the grid. */
	bool sample(double x, double y, double & u, double & v) const;
	/*! Draws the arrow of vector (u, v) at the pixel position pos. */
	void drawArrow(QPainter * painter, const QPointF & pos, double u, double v) const;

	std::vector<double>				m_x;
	std::vector<double>				m_y;
	std::vector<double>				m_u;
	std::vector<double>				m_v;
	std::unique_ptr<QwtColorMap>	m_colorMap;
	QwtInterval						m_magnitudeRange;
	bool							m_coloredArrows = true;
	QColor							m_uniformColor = QColor(Qt::black);
	bool							m_rasterEnabled = false;
	int								m_rasterSpacing = 15;
	int								m_origin = OriginCenter;
	bool							m_thinArrows = true;
	double							m_magnitudeScaleFactor = 1;
	double							m_maxArrowLength = 50;
	double							m_minArrowLength = 0;
};

} // namespace SCI

#endif // Sci_PlotVectorFieldH
