#include "QPB_ValueType.h"

#include <QWidget>

#include <QtExt_InvalidMarking.h>

#include "QPB_Property.h"

namespace QPB {

QIcon ValueType::displayIcon(const Property &) const {
	return QIcon();
}


QWidget * ValueType::createEditor(QWidget *, const Property &) const {
	return nullptr;
}


void ValueType::setEditorValue(QWidget *, const Property &) const {
}


QString ValueType::editorValue(QWidget * editor, const Property & property, QVariant & value) const {
	QString reason = editorReason(editor);
	if (!reason.isEmpty())
		return reason;
	const QVariant v = readEditor(editor);
	reason = check(property, v);
	if (reason.isEmpty())
		value = v;
	return reason;
}


QString ValueType::editorReason(QWidget *) const {
	return QString();
}


QVariant ValueType::readEditor(QWidget *) const {
	return QVariant();
}


void ValueType::createSubProperties(Property &) const {
}


void ValueType::updateSubProperties(Property &) const {
}


QVariant ValueType::composeValue(const Property & property, int, const QVariant &) const {
	return property.value();
}


Property * ValueType::addSubProperty(Property & property, const QString & name, const QString & typeId,
									 const QVariant & value)
{
	std::unique_ptr<Property> part(new Property(name, typeId, value));
	part->m_subProperty = true;
	return property.addChild(std::move(part));
}


void ValueType::markEditor(QWidget * editor, const QString & reason) {
	QtExt::setInvalidMarking(editor, !reason.isEmpty());
	editor->setToolTip(reason);
}

} // namespace QPB
