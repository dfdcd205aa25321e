#include "QPB_CoordinateIndexType.h"

#include <QComboBox>

#include <QtExt_ValidatingLineEdit.h>

#include "QPB_Property.h"

namespace QPB {

QString CoordinateIndexType::displayText(const Property & property) const {
	return entryText(property, property.value().toInt());
}


QString CoordinateIndexType::check(const Property & property, const QVariant & value) const {
	const int count = property.attribute(Coordinates).toList().size();
	const int index = value.toInt();
	if (value.type() != QVariant::Int)
		return tr("Choose a coordinate.");
	if (index == FOLLOW_LAST && property.attribute(FollowLast).toBool())
		return QString();
	if (index < 0 || index >= count)
		return tr("Index %1 lies outside the %n coordinate values.", nullptr, count).arg(index);
	return QString();
}


QWidget * CoordinateIndexType::createEditor(QWidget * parent, const Property & property) const {
	QComboBox * combo = new QComboBox(parent);
	if (property.attribute(FollowLast).toBool())
		combo->addItem(entryText(property, FOLLOW_LAST), FOLLOW_LAST);
	const int count = property.attribute(Coordinates).toList().size();
	for (int i = 0; i < count; ++i)
		combo->addItem(entryText(property, i), i);
	return combo;
}


void CoordinateIndexType::setEditorValue(QWidget * editor, const Property & property) const {
	QComboBox * combo = static_cast<QComboBox *>(editor);
	combo->setCurrentIndex(combo->findData(property.value().toInt()));
}


QVariant CoordinateIndexType::readEditor(QWidget * editor) const {
	return static_cast<QComboBox *>(editor)->currentData();
}


QString CoordinateIndexType::entryText(const Property & property, int index) {
	if (index == FOLLOW_LAST && property.attribute(FollowLast).toBool())
		return tr("follow last time point");
	const QVariantList coordinates = property.attribute(Coordinates).toList();
	if (index < 0 || index >= coordinates.size())
		return tr("index %1").arg(index);
	const QString number = QtExt::ValidatingLineEdit::formatNumber(coordinates[index].toDouble(),
		property.attribute(Decimals, 6).toInt(), QLocale());
	const QString unit = property.attribute(Unit).toString();
	return unit.isEmpty() ? number : number + " " + unit;
}

} // namespace QPB
