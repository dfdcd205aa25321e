#include "Sci_VariantConversion.h"

#include <cmath>

namespace SCI {

bool VariantConversion::convert(const QVariant & v, bool & result) {
	if (!v.isValid() || !v.canConvert<bool>())
		return false;
	result = v.toBool();
	return true;
}


bool VariantConversion::convert(const QVariant & v, int & result) {
	bool ok = false;
	int i = v.toInt(&ok);
	if (!ok)
		return false;
	result = i;
	return true;
}


bool VariantConversion::convert(const QVariant & v, unsigned int & result) {
	bool ok = false;
	unsigned int i = v.toUInt(&ok);
	if (!ok)
		return false;
	result = i;
	return true;
}


bool VariantConversion::convert(const QVariant & v, double & result) {
	bool ok = false;
	double d = v.toDouble(&ok);
	if (!ok)
		return false;
	result = d;
	return true;
}


bool VariantConversion::convert(const QVariant & v, QString & result) {
	if (!v.isValid() || !v.canConvert<QString>())
		return false;
	result = v.toString();
	return true;
}


bool VariantConversion::convert(const QVariant & v, QColor & result) {
	if (!v.canConvert<QColor>())
		return false;
	QColor c = v.value<QColor>();
	if (!c.isValid())
		return false;
	result = c;
	return true;
}


bool VariantConversion::convert(const QVariant & v, QFont & result) {
	if (!v.canConvert<QFont>())
		return false;
	result = v.value<QFont>();
	return true;
}


bool VariantConversion::convert(const QVariant & v, QPen & result) {
	if (!v.canConvert<QPen>())
		return false;
	result = v.value<QPen>();
	return true;
}


bool VariantConversion::convert(const QVariant & v, QSize & result) {
	if (!v.canConvert<QSize>())
		return false;
	result = v.toSize();
	return true;
}


bool VariantConversion::convert(const QVariant & v, QDateTime & result) {
	if (!v.canConvert<QDateTime>())
		return false;
	QDateTime dt = v.toDateTime();
	if (!dt.isValid())
		return false;
	result = dt;
	return true;
}


bool VariantConversion::convert(const QVariant & v, QStringList & result) {
	if (!v.canConvert<QStringList>())
		return false;
	result = v.toStringList();
	return true;
}


bool VariantConversion::convert(const QVariant & v, ColorMap & result) {
	if (v.userType() != qMetaTypeId<ColorMap>())
		return false;
	result = v.value<ColorMap>();
	return true;
}


bool VariantConversion::equal(double a, double b) {
	return a == b || (std::isnan(a) && std::isnan(b));
}

} // namespace SCI
