#ifndef Sci_DateScaleEngineH
#define Sci_DateScaleEngineH

#include <qwt_date_scale_engine.h>

#include "Sci_DateTimeMapping.h"

namespace SCI {

/*! Scale engine of a date-time axis. The axis holds plain numbers in a time unit counted from the
	axis' zero date-time; the engine converts them to points in time, lets the date engine of the
	plotting library place ticks on calendar boundaries (full hours, days, months, years), and
	converts the ticks back to axis values.
*/
class DateScaleEngine : public QwtDateScaleEngine {
public:
	explicit DateScaleEngine(const DateTimeMapping & mapping);

	/*! Widens x1..x2 (axis values) to calendar boundaries, unless the Floating attribute is set. */
	void autoScale(int maxNumSteps, double & x1, double & x2, double & stepSize) const override;
	/*! Ticks of the interval x1..x2 (axis values) on calendar boundaries. */
	QwtScaleDiv divideScale(double x1, double x2, int maxMajorSteps, int maxMinorSteps,
							double stepSize = 0.0) const override;

	const DateTimeMapping & mapping() const { return m_mapping; }

private:
	DateTimeMapping	m_mapping;
};

} // namespace SCI

#endif // Sci_DateScaleEngineH
