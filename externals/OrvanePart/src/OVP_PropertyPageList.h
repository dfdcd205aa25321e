#ifndef OVP_PropertyPageListH
#define OVP_PropertyPageListH

#include <functional>
#include <memory>
#include <vector>

#include <QObject>
#include <QString>

#include <Sci_ChartElement.h>

namespace OVP {

class Mapper;
class PropertyPage;

/*! The pages of the property panel for one mapper, in the order the panel lists them: the chart,
	its axes (the right y-axis only while a series uses it), one page per series and one per data
	set. Pages are made when first asked for, so that opening the panel of a chart with many
	series stays quick. The list knows which page shows an element of the chart (a double-clicked
	title, axis, curve, ...). It is made anew (pagesChanged()) when series come or go or the
	right axis comes into use or out of it; the titles of series pages follow the series
	(titlesChanged()).
*/
class PropertyPageList : public QObject {
	Q_OBJECT
public:
	/*! The pages of mapper, which must have a chart model. */
	explicit PropertyPageList(Mapper & mapper, QObject * parent = nullptr);
	~PropertyPageList() override;

	int count() const { return static_cast<int>(m_entries.size()); }
	/*! The title of page index, also of a page not made yet. */
	QString title(int index) const;
	/*! The page at index, made on first request; owned by the list. */
	PropertyPage * page(int index);
	/*! True when the page at index has been made. */
	bool isMade(int index) const { return m_entries[static_cast<size_t>(index)].m_page != nullptr; }
	/*! The index of the page that shows element: the chart page for the title, legend and
		canvas, an axis page, a series page for a series or legend entry, the series page of the
		colour grid or vector field for the colour bar; -1 when no page shows it.
	*/
	int indexOf(const SCI::ChartElement & element) const;
	/*! The element a page stands for (the chart page: the canvas); see indexOf(). */
	SCI::ChartElement element(int index) const { return m_entries[static_cast<size_t>(index)].m_element; }

signals:
	/*! The list was made anew; all earlier pages are gone. */
	void pagesChanged();
	/*! Titles of pages changed (a series renamed). */
	void titlesChanged();

private:
	/*! One page, made or still to be made. */
	struct Entry {
		SCI::ChartElement							m_element;
		std::function<QString()>					m_title;
		std::function<PropertyPage *()>				m_make;
		std::unique_ptr<PropertyPage>				m_page;
	};

	/*! Makes the list of entries for the mapper's chart as it is now. */
	void rebuild();
	/*! True when a line series is shown on the right y-axis. */
	bool rightAxisUsed() const;

	Mapper &			m_mapper;
	std::vector<Entry>	m_entries;
	/*! Whether the list has a page of the right y-axis. */
	bool				m_hasRightAxis = false;
};

} // namespace OVP

#endif // OVP_PropertyPageListH
