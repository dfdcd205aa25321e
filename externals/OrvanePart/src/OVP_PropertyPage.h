#ifndef OVP_PropertyPageH
#define OVP_PropertyPageH

#include <QObject>
#include <QString>

#include <QPB_Property.h>
#include <QPB_PropertyModel.h>

namespace OVP {

/*! One page of the property panel: the properties of one part of a chart (the chart, an axis, a
	series or a data set) as a property tree. A page fills its tree from the session and keeps it
	up to date when the part changes elsewhere (an undo, a zoom, a reload, a refresh), so that it
	never shows a stale value. Edits of the tree reach the page as requests, which it turns into
	undoable changes of the session; the tree itself only changes when the session did.
*/
class PropertyPage : public QObject {
	Q_OBJECT
public:
	explicit PropertyPage(QObject * parent = nullptr);

	/*! The page's name in the panel's list of pages, e.g. "Chart", "y-axis", "Series 'Temperature'". */
	virtual QString title() const = 0;
	/*! The properties shown. */
	QPB::PropertyModel & properties() { return m_properties; }

signals:
	/*! An edit was refused; reason says why, as a sentence, for the panel to show. */
	void editRefused(const QString & reason);

protected:
	/*! An edit of property to newValue that the property's type accepted; the page changes the
		session (or refuses with a message) and shows the outcome. */
	virtual void onEditRequested(QPB::Property * property, const QVariant & newValue) = 0;

private:
	QPB::PropertyModel	m_properties;
};

} // namespace OVP

#endif // OVP_PropertyPageH
