#include "Sci_ColorLookupTable.h"

#include <algorithm>
#include <limits>
#include <typeinfo>

#include <QVector>

#include <qwt_color_map.h>

namespace SCI {

namespace {

/*! Longest search for the value where the colour of a part changes; parts across zero would
	need about a thousand halvings to reach neighbouring numbers and are left to the map. */
const int MAX_HALVINGS = 200;

/*! Positions (0..1) of the stops of map, sorted, where its colours bend or jump; false for maps
	whose colours are not known to be monotonic between stops. */
bool stopPositions(const QwtColorMap & map, std::vector<double> & stops) {
	if (typeid(map) == typeid(QwtLinearColorMap)) {
		const QVector<double> positions = static_cast<const QwtLinearColorMap &>(map).colorStops();
		stops.assign(positions.begin(), positions.end());
		std::sort(stops.begin(), stops.end());
		return true;
	}
	// the alpha map fades linearly from the minimum to the maximum of the range
	return typeid(map) == typeid(QwtAlphaColorMap);
}

} // namespace


ColorLookupTable::ColorLookupTable(const QwtColorMap & map, const QwtInterval & range) :
	m_map(map),
	m_range(range),
	m_min(range.minValue()),
	m_max(range.maxValue())
{
	const double width = m_max - m_min;
	std::vector<double> stops;
	if (!(std::isfinite(width) && width > 0) || !stopPositions(map, stops))
		return;
	m_scale = ENTRIES/width;
	m_belowRange = map.rgb(range, std::nextafter(m_min, -HUGE_VAL));
	m_aboveRange = map.rgb(range, std::nextafter(m_max, HUGE_VAL));

	// The part index of a value is computed with rounding errors far below this pad: colours
	// taken this far beyond the bounds of a part enclose those of every value that lands in it.
	const double part = width/ENTRIES;
	const double pad = 1e-6*part + 4*std::numeric_limits<double>::epsilon()*std::max(std::fabs(m_min), std::fabs(m_max));
	m_entries.resize(ENTRIES);
	for (int k = 0; k < ENTRIES; ++k) {
		const double lo = std::max(m_min, m_min + k*part - pad);
		const double hi = std::min(m_max, m_min + (k + 1)*part + pad);
		// a stop at or near the part: the colours may bend or jump there
		const double posLo = (lo - m_min)/width - 1e-9;
		const double posHi = (hi - m_min)/width + 1e-9;
		const auto stop = std::lower_bound(stops.begin(), stops.end(), posLo);
		if (stop != stops.end() && *stop <= posHi)
			m_entries[static_cast<std::size_t>(k)] = Entry{ std::numeric_limits<double>::quiet_NaN(), 0u, 0u };
		else
			m_entries[static_cast<std::size_t>(k)] = entryBetween(lo, hi, map.rgb(range, lo), map.rgb(range, hi));
	}
}


QRgb ColorLookupTable::exactRgb(double v) const {
	return m_map.rgb(m_range, v);
}


/*! Between stops each channel changes monotonically: equal end colours hold throughout; else the
	first value coloured high is searched by halving, and the part has a single change when the
	number just below it is still coloured low.
*/
ColorLookupTable::Entry ColorLookupTable::entryBetween(double lo, double hi, QRgb low, QRgb high) const {
	if (low == high)
		return Entry{ -HUGE_VAL, low, high };
	double a = lo;
	double b = hi;
	for (int i = 0; i < MAX_HALVINGS; ++i) {
		const double m = a + 0.5*(b - a);
		if (!(m > a && m < b))
			break;
		if (m_map.rgb(m_range, m) == high)
			b = m;
		else
			a = m;
	}
	if (std::nextafter(a, b) == b && m_map.rgb(m_range, a) == low)
		return Entry{ b, low, high };
	return Entry{ std::numeric_limits<double>::quiet_NaN(), 0u, 0u };
}

} // namespace SCI
