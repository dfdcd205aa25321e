#ifndef OVP_PropertyPanelH
#define OVP_PropertyPanelH

#include <memory>

#include <QPointer>
#include <QWidget>

#include <Sci_ChartElement.h>

class QComboBox;
class QLabel;

namespace QPB {
class PropertyModel;
class PropertyView;
}

namespace OVP {

class Mapper;
class PropertyPage;
class PropertyPageList;

/*! The east panel: the properties of one chart. A chooser lists the chart's pages ("Chart", the
	axes, one per series, see PropertyPageList), the property view below shows the chosen page,
	and a message line says why the last edit was refused. The panel follows its mapper: pages
	come and go with the series, and the panel empties when the mapper is deleted.
*/
class PropertyPanel : public QWidget {
	Q_OBJECT
public:
	explicit PropertyPanel(QWidget * parent = nullptr);
	~PropertyPanel() override;

	/*! Shows the pages of mapper (null, or a mapper without chart: none), starting with the page
		of the same element as before where there is one.
	*/
	void setMapper(Mapper * mapper);
	Mapper * mapper() const { return m_mapper; }
	/*! Shows the page of a chart element (see PropertyPageList::indexOf()); false when no page
		shows it.
	*/
	bool showElement(const SCI::ChartElement & element);

	/*! The page shown; null without mapper. */
	PropertyPage * currentPage() const;
	/*! The pages of the mapper; null without mapper. */
	PropertyPageList * pages() const { return m_pages.get(); }
	/*! The message of the last refused edit; empty after a page change. */
	QString message() const;

private:
	/*! Fills the chooser from the page list and shows the page of element (else the first). */
	void fillChooser(SCI::ChartElement element);
	/*! Shows the page at index of the list. */
	void showPage(int index);
	/*! Shows or clears the message line. */
	void setMessage(const QString & text);

	QPointer<Mapper>					m_mapper;
	std::unique_ptr<PropertyPageList>	m_pages;
	QComboBox *							m_chooser;
	QPB::PropertyView *					m_view;
	QLabel *							m_message;
	/*! Shown while there is no page. */
	QPB::PropertyModel *				m_empty;
	QPointer<PropertyPage>				m_current;
	/*! The element of the page shown, to find it again when the list is made anew. */
	SCI::ChartElement					m_currentElement;
};

} // namespace OVP

#endif // OVP_PropertyPanelH
