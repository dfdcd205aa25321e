#ifndef OVP_ChartPropertyPageH
#define OVP_ChartPropertyPageH

#include <map>
#include <vector>

#include <QPointer>

#include <Sci_PropertyRoleTable.h>

#include "OVP_PropertyPage.h"

namespace SCI {
class AbstractCartesianChartModel;
class Chart;
}

namespace OVP {

class Mapper;

/*! The page of one part of a mapper's chart: the chart itself, one axis or one series. Its
	properties are made from the role table of the part (SCI::PropertyRoleTable): one property
	per editable role, tagged with the role, in the table's groups, with the table's names,
	ranges, decimals, choices and special-value texts. A pen is shown once, with its colour and
	width as sub-properties (tagged with the part roles). The unit of an axis is chosen from the
	units it can convert to.

	Edits become undoable changes through the project handler; a value the page or the chart
	model refuses is reported with editRefused() and the page keeps showing the model's value.
	The page refuses what the model would take but makes no sense: a maximum that is not above
	its minimum, and the other way round. It follows every change of the chart model (also by
	undo, reload and refresh). An axis page also shows the range currently shown, which follows
	zooming and panning; the fixed minimum and maximum are disabled while the axis scales
	automatically.
*/
class ChartPropertyPage : public PropertyPage {
	Q_OBJECT
public:
	/*! The part of the chart a page shows. */
	enum Kind {
		ChartPage,
		AxisPage,
		SeriesPage
	};

	/*! A page of the chart of mapper (which must have a chart model); index is the axis
		position of an axis page and the series index of a series page.
	*/
	ChartPropertyPage(Mapper & mapper, Kind kind, int index, QObject * parent = nullptr);

	/*! The title of the page of a part, as title() would give it, without making the page. */
	static QString pageTitle(const Mapper & mapper, Kind kind, int index);

	QString title() const override;
	Kind kind() const { return m_kind; }
	int index() const { return m_index; }
	/*! The role table the page is made from. */
	SCI::PropertyRoleTable::Target target() const { return m_target; }
	/*! The property that edits role (a sub-property for the parts of a pen); null for none. */
	QPB::Property * propertyOfRole(int role) const;
	/*! The rows of the range shown on an axis page (read-only); null on other pages. */
	QPB::Property * shownMinimum() const { return m_shownMinimum; }
	QPB::Property * shownMaximum() const { return m_shownMaximum; }

	/*! Registers the value types that the pages need beyond the framework's (colour map, list
		of texts, size, isopleth lines); done by the first page, safe to call repeatedly.
	*/
	static void registerValueTypes();

protected:
	void onEditRequested(QPB::Property * property, const QVariant & newValue) override;

private:
	/*! Makes the property tree. */
	void build();
	/*! Adds the property of one table entry below its group. */
	void addEntry(const SCI::PropertyRoleTable::Entry & entry, std::map<QString, QPB::Property *> & groups);
	/*! Shows the model's value of role (of the pen, for a part of a pen). */
	void refresh(int role);
	/*! Shows every value again, and the states that depend on them. */
	void refreshAll();
	/*! Fills the unit choices of an axis page. */
	void updateUnitChoices();
	/*! Disables the fixed range while the axis scales automatically. */
	void updateEnabledStates();
	/*! Shows the range the chart shows on the page's axis. */
	void updateShownRange();

	/*! The value of role as the model holds it. */
	QVariant modelValue(int role) const;
	/*! The model value as the property shows it (enum index, unit index, ...). */
	QVariant shownValue(const SCI::PropertyRoleTable::Entry & entry, const QVariant & modelValue) const;
	/*! A value of the property as the model takes it. */
	QVariant storedValue(const SCI::PropertyRoleTable::Entry & entry, const QVariant & shownValue) const;
	/*! Why the model value for role is refused by the page itself; empty when it is not. */
	QString pageCheck(int role, const QVariant & value) const;
	/*! Hands value of role to the project handler; false when it was refused. */
	bool apply(int role, const QVariant & value);

	/*! True while the page's model exists and still has the page's series. */
	bool isValid() const;

	Mapper &							m_mapper;
	Kind								m_kind;
	int									m_index;
	SCI::PropertyRoleTable::Target		m_target;
	SCI::AbstractCartesianChartModel *	m_model;
	/*! The plot, for the range shown (axis pages only). */
	QPointer<SCI::Chart>				m_chart;
	/*! The properties by role (parts of pens: the sub-properties). */
	std::map<int, QPB::Property *>		m_rows;
	/*! Unit ids of the unit choices of an axis page, in the order of the enum. */
	std::vector<unsigned int>			m_unitIds;
	QPB::Property *						m_shownMinimum = nullptr;
	QPB::Property *						m_shownMaximum = nullptr;
};

} // namespace OVP

#endif // OVP_ChartPropertyPageH
