#ifndef Sci_BarLabelScaleDrawH
#define Sci_BarLabelScaleDrawH

#include <QStringList>

#include "Sci_LabelFitScaleDraw.h"

namespace SCI {

/*! Scale draw of the x axis of a bar chart: bar position i sits at the axis value i and is
	labelled with the i-th bar label; other values get no label. Labels that would overlap are
	thinned out.
*/
class BarLabelScaleDraw : public LabelFitScaleDraw {
public:
	explicit BarLabelScaleDraw(const QStringList & labels);

	/*! The bar label at an integer value, an empty text elsewhere. */
	QwtText label(double value) const override;

	/*! The scale division for count bar positions: from -0.5 to count - 0.5, one major tick per
		bar position and no minor ticks. */
	static QwtScaleDiv scaleDiv(int count);

private:
	QStringList	m_labels;
};

} // namespace SCI

#endif // Sci_BarLabelScaleDrawH
