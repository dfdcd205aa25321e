#ifndef EM_ModelPeriodH
#define EM_ModelPeriodH

namespace EM {

/*! The evaluated period of the models with the parameters TSH, TSD and TED.
	TSH is a time shift in hours added to every time point (so that the period and the result's
	time axis can be given in calendar time when a simulation does not start at time 0); TSD and
	TED are the first and last day of the period on the shifted time axis. A negative day sets
	no limit on that side.
*/
struct ModelPeriod {
	/*! True when the shifted time point (in hours) lies within the period, bounds included. */
	bool contains(double shiftedHours) const {
		return (m_startDay < 0 || shiftedHours >= m_startDay * 24)
			&& (m_endDay < 0 || shiftedHours <= m_endDay * 24);
	}

	double	m_timeShiftHours = 0;	///< TSH, hours added to every time point
	double	m_startDay = -1;		///< TSD, first day of the period, negative: open
	double	m_endDay = -1;			///< TED, last day of the period, negative: open
};

} // namespace EM

#endif // EM_ModelPeriodH
