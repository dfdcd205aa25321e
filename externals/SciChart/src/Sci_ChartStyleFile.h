#ifndef Sci_ChartStyleFileH
#define Sci_ChartStyleFileH

#include <QString>

namespace SCI {

class AbstractChartModel;

/*! Chart style files (".o2style"): the complete display properties of a chart model, saved
	from one chart and applied to another. The root element OrvaneStyle holds one ChartModel
	element (attribute chartType) with the model's XML written with the write-all flag set.
*/
class ChartStyleFile {
public:
	/*! File name extension of style files. */
	static const char * const EXTENSION;
	/*! Text shown to the user, with the exception's message, when a style cannot be applied. */
	static const char * const APPLY_ERROR_TEXT;

	/*! Writes the style of model to path, with every property. Throws ZEB::Exception. */
	static void save(AbstractChartModel & model, const QString & path);

	/*! Reads the style file at path into model. Everything that goes wrong is thrown as
		ZEB::Exception with the message APPLY_ERROR_TEXT on top of the cause. A file that is no
		style file (parse error, other root element, missing chartType) or the style of another
		kind of chart leaves model unchanged.
	*/
	static void apply(AbstractChartModel & model, const QString & path);

	/*! The chartType attribute of a model: "2D" (line chart), "3D" (colour grid chart),
		"Vector" (vector field chart) or "Bar" (bar chart). */
	static const char * chartType(const AbstractChartModel & model);
};

} // namespace SCI

#endif // Sci_ChartStyleFileH
