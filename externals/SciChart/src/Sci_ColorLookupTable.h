#ifndef Sci_ColorLookupTableH
#define Sci_ColorLookupTableH

#include <cmath>
#include <vector>

#include <QRgb>

#include <qwt_interval.h>

class QwtColorMap;

namespace SCI {

/*! The colours of a colour map of the plotting library over one value range, looked up instead
	of computed: rgb(v) gives exactly the colour the map gives for v.

	The range is cut into ENTRIES equal parts. Inside a part between two colour stops every
	channel of a linear or alpha map rises or falls monotonically, so a part whose colours at
	both ends are equal has that colour throughout, and a part with one change of colour is
	stored as the value where it changes and the colours below and above. Parts holding a stop
	or more than one change, and maps of other kinds, are left to the map itself.

	The table refers to the map, which must outlive it. rgb() may be called from several
	threads at once.
*/
class ColorLookupTable {
public:
	/*! Number of parts of the value range. */
	static constexpr int ENTRIES = 4096;

	/*! Builds the table of map over range; range must be valid. */
	ColorLookupTable(const QwtColorMap & map, const QwtInterval & range);

	const QwtColorMap & map() const { return m_map; }
	const QwtInterval & range() const { return m_range; }

	/*! The colour of value v: transparent for NaN, the end colours outside the range. */
	QRgb rgb(double v) const {
		if (std::isnan(v))
			return 0u;
		if (m_entries.empty())
			return exactRgb(v);
		if (v < m_min)
			return m_belowRange;
		if (v > m_max)
			return m_aboveRange;
		int k = static_cast<int>((v - m_min)*m_scale);
		if (k > ENTRIES - 1)
			k = ENTRIES - 1;
		const Entry & e = m_entries[static_cast<std::size_t>(k)];
		if (std::isnan(e.m_split))
			return exactRgb(v);
		return v < e.m_split ? e.m_below : e.m_above;
	}

private:
	/*! One part of the range: values below m_split have the colour m_below, the others
		m_above; a NaN split leaves the part to the map. */
	struct Entry {
		double	m_split;
		QRgb	m_below;
		QRgb	m_above;
	};

	/*! The colour computed by the map. */
	QRgb exactRgb(double v) const;
	/*! The entry for values lo..hi, both inside one segment between stops, coloured lo and hi. */
	Entry entryBetween(double lo, double hi, QRgb low, QRgb high) const;

	const QwtColorMap &	m_map;
	QwtInterval			m_range;
	double				m_min;
	double				m_max;
	/*! ENTRIES/width of the range: value -> part index. */
	double				m_scale = 0;
	QRgb				m_belowRange;
	QRgb				m_aboveRange;
	/*! Empty when the map is not one of the kinds described above or the range is not a
		finite interval of positive width: then every colour comes from the map. */
	std::vector<Entry>	m_entries;
};

} // namespace SCI

#endif // Sci_ColorLookupTableH
