#ifndef Sci_BarLabelScaleDrawH
#define Sci_BarLabelScaleDrawH

#include <QStringList>

#include <qwt_scale_draw.h>

namespace SCI {

/*! Scale draw of the x axis of a bar chart: bar position i sits at the axis value i and is
	labelled with the i-th bar label; other values get no label. Labels that would overlap are
	thinned out.
*/
class BarLabelScaleDraw : public QwtScaleDraw {
public:
	explicit BarLabelScaleDraw(const QStringList & labels);

	/*! The bar label at an integer value, an empty text elsewhere. */
	QwtText label(double value) const override;

	/*! The scale division for count bar positions: from -0.5 to count - 0.5, one major tick per
		bar position and no minor ticks. */
	static QwtScaleDiv scaleDiv(int count);

protected:
	/*! Draws the label unless it has to give way to its neighbours. */
	void drawLabel(QPainter * painter, double value) const override;

private:
	QStringList	m_labels;
};

} // namespace SCI

#endif // Sci_BarLabelScaleDrawH
