#include "OVP_ColorMapType.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPixmap>
#include <QVBoxLayout>

#include <QPB_DialogEditor.h>
#include <QPB_Property.h>

#include <Sci_ColorMap.h>
#include <Sci_ColorMapEditWidget.h>

namespace OVP {

namespace {

/*! Size of the gradient swatch. */
const QSize SWATCH_SIZE(32, 12);

/*! Runs the colour-map editor in a dialog; an invalid QVariant when cancelled. */
QVariant editColorMap(QWidget * parent, const QVariant & value) {
	QDialog dialog(parent);
	dialog.setWindowTitle(ColorMapType::tr("Colour map"));
	SCI::ColorMapEditWidget * editor = new SCI::ColorMapEditWidget(&dialog);
	editor->setColorMap(value.value<SCI::ColorMap>());
	QDialogButtonBox * buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
	QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
	QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
	QVBoxLayout * layout = new QVBoxLayout(&dialog);
	layout->addWidget(editor);
	layout->addWidget(buttons);
	if (dialog.exec() != QDialog::Accepted)
		return QVariant();
	return QVariant::fromValue(editor->colorMap());
}

} // namespace


QString ColorMapType::displayText(const QPB::Property & property) const {
	const SCI::ColorMap map = property.value().value<SCI::ColorMap>();
	if (map.m_type == SCI::ColorMap::AlphaMap)
		return tr("fading %1").arg(map.m_alphaColor.name());
	return tr("%n colours", nullptr, map.m_linearColorStops.size());
}


QIcon ColorMapType::displayIcon(const QPB::Property & property) const {
	return QIcon(QPixmap::fromImage(SCI::ColorMapEditWidget::previewImage(property.value().value<SCI::ColorMap>(),
																			SWATCH_SIZE)));
}


QString ColorMapType::check(const QPB::Property &, const QVariant & value) const {
	if (value.userType() != qMetaTypeId<SCI::ColorMap>())
		return tr("Choose a colour map.");
	const SCI::ColorMap map = value.value<SCI::ColorMap>();
	if (map.m_type == SCI::ColorMap::LinearMap && map.m_linearColorStops.size() < 2)
		return tr("A colour map needs at least two colours.");
	return QString();
}


QWidget * ColorMapType::createEditor(QWidget * parent, const QPB::Property &) const {
	return new QPB::DialogEditor(&editColorMap, parent);
}


void ColorMapType::setEditorValue(QWidget * editor, const QPB::Property & property) const {
	static_cast<QPB::DialogEditor *>(editor)->setValue(property.value(), displayText(property), displayIcon(property));
}


QVariant ColorMapType::readEditor(QWidget * editor) const {
	return static_cast<QPB::DialogEditor *>(editor)->value();
}

} // namespace OVP
