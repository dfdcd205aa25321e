#include "QPB_DateTimeType.h"

#include <QDateTimeEdit>

#include "QPB_Property.h"

namespace QPB {

namespace {

/*! The display format of property. */
QString format(const Property & property) {
	return property.attribute(DateTimeType::Format, "yyyy-MM-dd hh:mm:ss").toString();
}

} // namespace


QString DateTimeType::displayText(const Property & property) const {
	return property.value().toDateTime().toString(format(property));
}


QString DateTimeType::check(const Property &, const QVariant & value) const {
	if (value.type() != QVariant::DateTime || !value.toDateTime().isValid())
		return tr("Enter a valid date and time.");
	return QString();
}


QWidget * DateTimeType::createEditor(QWidget * parent, const Property & property) const {
	QDateTimeEdit * edit = new QDateTimeEdit(parent);
	edit->setFrame(false);
	edit->setDisplayFormat(format(property));
	edit->setCalendarPopup(true);
	return edit;
}


void DateTimeType::setEditorValue(QWidget * editor, const Property & property) const {
	static_cast<QDateTimeEdit *>(editor)->setDateTime(property.value().toDateTime());
}


QVariant DateTimeType::readEditor(QWidget * editor) const {
	return static_cast<QDateTimeEdit *>(editor)->dateTime();
}

} // namespace QPB
