#include "OVP_SizeType.h"

#include <limits>

#include <QSize>

#include <QPB_NumberType.h>
#include <QPB_Property.h>

namespace OVP {

QString SizeType::displayText(const QPB::Property & property) const {
	const QSize size = property.value().toSize();
	return tr("%1 x %2 px").arg(size.width()).arg(size.height());
}


QString SizeType::check(const QPB::Property & property, const QVariant & value) const {
	if (value.type() != QVariant::Size)
		return tr("Enter a width and a height.");
	const QSize size = value.toSize();
	const int minimum = property.attribute(QPB::NumberType::Minimum, 0).toInt();
	const int maximum = property.attribute(QPB::NumberType::Maximum, std::numeric_limits<int>::max()).toInt();
	for (int part : { size.width(), size.height() })
		if (part < minimum || part > maximum)
			return tr("Width and height must be between %1 and %2.").arg(minimum).arg(maximum);
	return QString();
}


void SizeType::createSubProperties(QPB::Property & property) const {
	addSubProperty(property, tr("Width"), QPB::NumberType::INT_ID, 0);
	addSubProperty(property, tr("Height"), QPB::NumberType::INT_ID, 0);
}


void SizeType::updateSubProperties(QPB::Property & property) const {
	const QSize size = property.value().toSize();
	for (int row : { SP_Width, SP_Height }) {
		QPB::Property * part = property.child(row);
		for (const char * limit : { QPB::NumberType::Minimum, QPB::NumberType::Maximum })
			if (property.attribute(limit).isValid())
				part->setAttribute(limit, property.attribute(limit));
		part->setAttribute(QPB::NumberType::Unit, tr("px"));
	}
	property.child(SP_Width)->setValue(size.width());
	property.child(SP_Height)->setValue(size.height());
}


QVariant SizeType::composeValue(const QPB::Property & property, int row, const QVariant & partValue) const {
	QSize size = property.value().toSize();
	if (row == SP_Width)
		size.setWidth(partValue.toInt());
	else
		size.setHeight(partValue.toInt());
	return size;
}

} // namespace OVP
