#include "Sci_DateScaleEngine.h"

namespace SCI {

DateScaleEngine::DateScaleEngine(const DateTimeMapping & mapping) :
	QwtDateScaleEngine(mapping.timeSpec()),
	m_mapping(mapping)
{
	setUtcOffset(mapping.utcOffset());
}


void DateScaleEngine::autoScale(int maxNumSteps, double & x1, double & x2, double & stepSize) const {
	double t1 = m_mapping.toMSecs(x1);
	double t2 = m_mapping.toMSecs(x2);
	double step = stepSize*m_mapping.msecsPerUnit();
	QwtDateScaleEngine::autoScale(maxNumSteps, t1, t2, step);
	x1 = m_mapping.fromMSecs(t1);
	x2 = m_mapping.fromMSecs(t2);
	stepSize = step/m_mapping.msecsPerUnit();
}


QwtScaleDiv DateScaleEngine::divideScale(double x1, double x2, int maxMajorSteps, int maxMinorSteps,
										 double stepSize) const
{
	const QwtScaleDiv msDiv = QwtDateScaleEngine::divideScale(m_mapping.toMSecs(x1), m_mapping.toMSecs(x2),
															  maxMajorSteps, maxMinorSteps,
															  stepSize*m_mapping.msecsPerUnit());
	QList<double> ticks[QwtScaleDiv::NTickTypes];
	for (int type = 0; type < QwtScaleDiv::NTickTypes; ++type)
		for (double t : msDiv.ticks(type))
			ticks[type].append(m_mapping.fromMSecs(t));
	// the bounds stay exactly as requested, unaffected by the round trip through milliseconds
	return QwtScaleDiv(x1, x2, ticks);
}

} // namespace SCI
