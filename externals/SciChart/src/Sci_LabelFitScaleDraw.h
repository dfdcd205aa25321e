#ifndef Sci_LabelFitScaleDrawH
#define Sci_LabelFitScaleDrawH

#include <qwt_scale_draw.h>

namespace SCI {

/*! Scale draw of number axes: labels that would overlap are thinned out (ScaleLabelFit), so that
	a small chart keeps readable labels.
*/
class LabelFitScaleDraw : public QwtScaleDraw {
protected:
	/*! Draws the label unless it has to give way to its neighbours. */
	void drawLabel(QPainter * painter, double value) const override;
};

} // namespace SCI

#endif // Sci_LabelFitScaleDrawH
