#include "QPB_EnumType.h"

#include <QComboBox>

#include "QPB_Property.h"

namespace QPB {

namespace {

/*! The icon of entry index of property, or a null icon. */
QIcon entryIcon(const Property & property, int index) {
	const QVariantList icons = property.attribute(EnumType::Icons).toList();
	return index >= 0 && index < icons.size() ? icons[index].value<QIcon>() : QIcon();
}

} // namespace


QString EnumType::displayText(const Property & property) const {
	return property.attribute(Names).toStringList().value(property.value().toInt());
}


QIcon EnumType::displayIcon(const Property & property) const {
	return entryIcon(property, property.value().toInt());
}


QString EnumType::check(const Property & property, const QVariant & value) const {
	const int count = property.attribute(Names).toStringList().size();
	if (value.type() != QVariant::Int || value.toInt() < 0 || value.toInt() >= count)
		return tr("Choose one of the %n entries.", nullptr, count);
	return QString();
}


QWidget * EnumType::createEditor(QWidget * parent, const Property & property) const {
	QComboBox * combo = new QComboBox(parent);
	const QStringList names = property.attribute(Names).toStringList();
	for (int i = 0; i < names.size(); ++i)
		combo->addItem(entryIcon(property, i), names[i]);
	return combo;
}


void EnumType::setEditorValue(QWidget * editor, const Property & property) const {
	static_cast<QComboBox *>(editor)->setCurrentIndex(property.value().toInt());
}


QVariant EnumType::readEditor(QWidget * editor) const {
	return static_cast<QComboBox *>(editor)->currentIndex();
}

} // namespace QPB
