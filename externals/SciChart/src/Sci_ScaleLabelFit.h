#ifndef Sci_ScaleLabelFitH
#define Sci_ScaleLabelFitH

class QFont;
class QwtScaleDraw;

namespace SCI {

/*! Keeps the labels of a scale from overlapping: when the labels of neighbouring major ticks
	would touch, only every second, third, ... label is drawn. The decision is taken while
	drawing, with the font and the scale map of the target, so it holds on screen and in exported
	pictures of any size alike.
*/
class ScaleLabelFit {
public:
	/*! Smallest step k such that drawing the labels of every k-th major tick (starting with the
		first one inside the scale) leaves a gap between all neighbouring labels. */
	static int labelStep(const QwtScaleDraw & scaleDraw, const QFont & font);
	/*! True when the label of the major tick at value is drawn with the step of labelStep(). */
	static bool isLabelDrawn(const QwtScaleDraw & scaleDraw, const QFont & font, double value);
};

} // namespace SCI

#endif // Sci_ScaleLabelFitH
