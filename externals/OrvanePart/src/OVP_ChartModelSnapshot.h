#ifndef OVP_ChartModelSnapshotH
#define OVP_ChartModelSnapshotH

#include <memory>
#include <vector>

#include <QVariant>

class TiXmlElement;

namespace SCI {
class AbstractCartesianChartModel;
}

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

/*! The texts of a chart as stored: its title, the axis titles and the series titles. A chart
	style gives a chart another look but leaves it these texts.
*/
class ChartTexts {
public:
	/*! Takes the texts of model. */
	explicit ChartTexts(const SCI::AbstractCartesianChartModel & model);
	/*! Gives the texts back to model (series titles of series it still has). */
	void restore(SCI::AbstractCartesianChartModel & model) const;

private:
	QVariant				m_title;
	std::vector<QVariant>	m_axisTitles;
	std::vector<QVariant>	m_seriesTitles;
	/*! Role of the series titles; -1 for charts whose series have no title. */
	int						m_seriesTitleRole = -1;
};

} // namespace OVP

#endif // OVP_ChartModelSnapshotH
