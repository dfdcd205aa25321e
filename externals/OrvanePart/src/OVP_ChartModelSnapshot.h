#ifndef OVP_ChartModelSnapshotH
#define OVP_ChartModelSnapshotH

#include <memory>

class TiXmlElement;

namespace OVP {

class Mapper;

/*! The display properties of a mapper's chart at one moment: the chart model's XML written with
	all properties. Giving them back to the chart (restore()) brings back exactly that look, e.g.
	when a chart style applied to the chart is undone.
*/
class ChartModelSnapshot {
public:
	/*! Takes the snapshot of the chart of a mapper, which must have one. */
	explicit ChartModelSnapshot(const Mapper & mapper);
	~ChartModelSnapshot();
	ChartModelSnapshot(ChartModelSnapshot && other) noexcept;
	ChartModelSnapshot & operator=(ChartModelSnapshot && other) noexcept;

	/*! Gives the chart of mapper the properties of the snapshot and brings the mapper in line
		with them (see adopt()). Throws ZEB::Exception as adopt() does.
	*/
	void restore(Mapper & mapper) const;

	/*! Brings a mapper in line with properties its chart model has just read: the series titles
		are the model's, the extractors convert to the axis units. Throws ZEB::Exception when an
		axis unit does not fit the data on that axis.
	*/
	static void adopt(Mapper & mapper);

private:
	std::unique_ptr<TiXmlElement>	m_element;
};

} // namespace OVP

#endif // OVP_ChartModelSnapshotH
