#include "QPB_PenType.h"

#include <cmath>

#include <QPainter>
#include <QPen>
#include <QPixmap>

#include <QtExt_ValidatingLineEdit.h>

#include "QPB_ColorType.h"
#include "QPB_EnumType.h"
#include "QPB_NumberType.h"
#include "QPB_Property.h"

namespace QPB {

namespace {

/*! The names of the styles offered, indexed by Qt::PenStyle (NoPen to DashDotDotLine). */
const char * const STYLE_NAMES[] = {
	QT_TRANSLATE_NOOP("QPB::PenType", "No line"),
	QT_TRANSLATE_NOOP("QPB::PenType", "Solid"),
	QT_TRANSLATE_NOOP("QPB::PenType", "Dashed"),
	QT_TRANSLATE_NOOP("QPB::PenType", "Dotted"),
	QT_TRANSLATE_NOOP("QPB::PenType", "Dash-dot"),
	QT_TRANSLATE_NOOP("QPB::PenType", "Dash-dot-dot")
};

const int STYLE_COUNT = sizeof(STYLE_NAMES)/sizeof(STYLE_NAMES[0]);

/*! Widest pen accepted, in pixels. */
const double LARGEST_WIDTH = 100;

/*! A picture of a line in style. */
QIcon styleIcon(Qt::PenStyle style) {
	QPixmap pixmap(24, 16);
	pixmap.fill(Qt::transparent);
	QPainter painter(&pixmap);
	painter.setPen(QPen(Qt::black, 2, style, Qt::FlatCap));
	painter.drawLine(0, 8, 24, 8);
	return QIcon(pixmap);
}

} // namespace


QString PenType::displayText(const Property & property) const {
	const QPen pen = property.value().value<QPen>();
	const int style = pen.style();
	return QString("%1, %2, %3").arg(ColorType::colorText(pen.color()),
		tr("%1 px").arg(QtExt::ValidatingLineEdit::formatNumber(pen.widthF(), 2, QLocale())),
		style < STYLE_COUNT ? tr(STYLE_NAMES[style]) : tr("Custom"));
}


QIcon PenType::displayIcon(const Property & property) const {
	return ColorType::swatch(property.value().value<QPen>().color());
}


QString PenType::check(const Property &, const QVariant & value) const {
	if (value.type() != QVariant::Pen)
		return tr("Choose a pen.");
	const QPen pen = value.value<QPen>();
	if (!pen.color().isValid())
		return tr("Choose a colour.");
	if (!(pen.widthF() >= 0 && pen.widthF() <= LARGEST_WIDTH))
		return QtExt::ValidatingLineEdit::rangeMessage(0, true, LARGEST_WIDTH, true, 2, QLocale());
	if (pen.style() >= STYLE_COUNT)
		return tr("Choose one of the line styles.");
	return QString();
}


void PenType::createSubProperties(Property & property) const {
	addSubProperty(property, tr("Colour"), ColorType::ID, QColor(Qt::black))->setAttribute(ColorType::Alpha, true);
	Property * width = addSubProperty(property, tr("Width"), NumberType::DOUBLE_ID, 1.0);
	width->setAttribute(NumberType::Minimum, 0.0);
	width->setAttribute(NumberType::Maximum, LARGEST_WIDTH);
	width->setAttribute(NumberType::Decimals, 2);
	width->setAttribute(NumberType::Unit, tr("px"));
	Property * style = addSubProperty(property, tr("Style"), EnumType::ID, 1);
	QStringList names;
	QVariantList icons;
	for (int i = 0; i < STYLE_COUNT; ++i) {
		names << tr(STYLE_NAMES[i]);
		icons << styleIcon(static_cast<Qt::PenStyle>(i));
	}
	style->setAttribute(EnumType::Names, names);
	style->setAttribute(EnumType::Icons, icons);
}


void PenType::updateSubProperties(Property & property) const {
	const QPen pen = property.value().value<QPen>();
	property.child(SP_Color)->setValue(pen.color());
	property.child(SP_Width)->setValue(pen.widthF());
	property.child(SP_Style)->setValue(static_cast<int>(pen.style()));
}


QVariant PenType::composeValue(const Property & property, int row, const QVariant & partValue) const {
	QPen pen = property.value().value<QPen>();
	switch (row) {
		case SP_Color: pen.setColor(partValue.value<QColor>()); break;
		case SP_Width: pen.setWidthF(partValue.toDouble()); break;
		case SP_Style: pen.setStyle(static_cast<Qt::PenStyle>(partValue.toInt())); break;
	}
	return pen;
}

} // namespace QPB
