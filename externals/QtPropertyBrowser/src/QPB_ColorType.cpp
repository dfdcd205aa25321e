#include "QPB_ColorType.h"

#include <QPainter>
#include <QPixmap>

#include "QPB_ColorComboBox.h"
#include "QPB_Property.h"

namespace QPB {

namespace {

/*! The named colours: plain, well distinguished colours for lines and backgrounds. */
const struct {
	const char *	m_name;
	const char *	m_color;
} NAMED_COLORS[] = {
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Black"),			"#000000" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Dark grey"),		"#606060" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Light grey"),	"#c0c0c0" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "White"),			"#ffffff" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Red"),			"#ff0000" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Dark red"),		"#800000" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Orange"),		"#ff8000" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Yellow"),		"#ffff00" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Green"),			"#00a000" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Dark green"),	"#005000" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Cyan"),			"#00c0c0" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Blue"),			"#0000ff" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Dark blue"),		"#000080" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Magenta"),		"#ff00ff" },
	{ QT_TRANSLATE_NOOP("QPB::ColorType", "Violet"),		"#8000c0" }
};

/*! Edge length of a swatch in pixels. */
const int SWATCH_SIZE = 14;

} // namespace


std::vector<std::pair<QString, QColor>> ColorType::namedColors() {
	std::vector<std::pair<QString, QColor>> colors;
	for (const auto & c : NAMED_COLORS)
		colors.emplace_back(tr(c.m_name), QColor(c.m_color));
	return colors;
}


QString ColorType::colorText(const QColor & color) {
	for (const auto & c : namedColors())
		if (c.second == color)
			return c.first;
	return color.name(color.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb);
}


QIcon ColorType::swatch(const QColor & color) {
	QPixmap pixmap(SWATCH_SIZE, SWATCH_SIZE);
	pixmap.fill(Qt::transparent);
	QPainter painter(&pixmap);
	painter.setPen(Qt::darkGray);
	painter.setBrush(color);
	painter.drawRect(0, 0, SWATCH_SIZE - 1, SWATCH_SIZE - 1);
	return QIcon(pixmap);
}


QString ColorType::displayText(const Property & property) const {
	return colorText(property.value().value<QColor>());
}


QIcon ColorType::displayIcon(const Property & property) const {
	return swatch(property.value().value<QColor>());
}


QString ColorType::check(const Property & property, const QVariant & value) const {
	const QColor color = value.value<QColor>();
	if (value.type() != QVariant::Color || !color.isValid())
		return tr("Choose a colour.");
	if (color.alpha() < 255 && !property.attribute(Alpha).toBool())
		return tr("The colour must not be transparent.");
	return QString();
}


QWidget * ColorType::createEditor(QWidget * parent, const Property & property) const {
	return new ColorComboBox(property.attribute(Alpha).toBool(), parent);
}


void ColorType::setEditorValue(QWidget * editor, const Property & property) const {
	static_cast<ColorComboBox *>(editor)->setColor(property.value().value<QColor>());
}


QVariant ColorType::readEditor(QWidget * editor) const {
	return static_cast<ColorComboBox *>(editor)->color();
}

} // namespace QPB
