#ifndef Sci_ChartElementH
#define Sci_ChartElementH

namespace SCI {

/*! A part of a chart that the user points at with the mouse: the title, an axis, the legend, a
	series, the colour bar or the empty canvas. The index is the model's axis position for axes
	and the model series index for series and for legend entries (-1: the legend as a whole).
*/
struct ChartElement {
	enum Kind {
		None,
		Title,
		Axis,
		Legend,
		Series,
		ColorBar,
		Canvas
	};

	ChartElement() = default;
	ChartElement(Kind kind, int index = -1) : m_kind(kind), m_index(index) {}

	bool operator==(const ChartElement & other) const { return m_kind == other.m_kind && m_index == other.m_index; }
	bool operator!=(const ChartElement & other) const { return !(*this == other); }

	Kind	m_kind = None;
	int		m_index = -1;
};

} // namespace SCI

#endif // Sci_ChartElementH
