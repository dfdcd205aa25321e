#include "QPB_ColorComboBox.h"

#include <QColorDialog>

#include "QPB_ColorType.h"

namespace QPB {

ColorComboBox::ColorComboBox(bool alpha, QWidget * parent) :
	QComboBox(parent),
	m_alpha(alpha)
{
	for (const auto & c : ColorType::namedColors())
		addItem(ColorType::swatch(c.second), c.first, c.second);
	addItem(tr("Other..."));
	connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
		if (index >= 0 && index != otherRow())
			m_color = itemData(index).value<QColor>();
	});
	connect(this, QOverload<int>::of(&QComboBox::activated), this, &ColorComboBox::choose);
}


void ColorComboBox::setColor(const QColor & color) {
	m_color = color;
	int row = findData(color);
	if (row < 0) {
		row = otherRow();
		insertItem(row, ColorType::swatch(color), ColorType::colorText(color), color);
	}
	setCurrentIndex(row);
}


void ColorComboBox::choose(int index) {
	if (index != otherRow())
		return;
	const QColor chosen = QColorDialog::getColor(m_color, this, tr("Choose a colour"),
		m_alpha ? QColorDialog::ShowAlphaChannel : QColorDialog::ColorDialogOptions());
	setColor(chosen.isValid() ? chosen : m_color);
}

} // namespace QPB
