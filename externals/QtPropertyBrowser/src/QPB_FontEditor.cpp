#include "QPB_FontEditor.h"

#include <QFontDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include "QPB_FontType.h"

namespace QPB {

FontEditor::FontEditor(QWidget * parent) :
	QWidget(parent),
	m_text(new QLabel(this))
{
	QToolButton * button = new QToolButton(this);
	button->setText("...");
	button->setToolTip(tr("Choose a font"));
	QHBoxLayout * layout = new QHBoxLayout(this);
	layout->setContentsMargins(3, 0, 0, 0);
	layout->setSpacing(2);
	layout->addWidget(m_text, 1);
	layout->addWidget(button);
	setFocusProxy(button);
	setAutoFillBackground(true);
	connect(button, &QToolButton::clicked, this, &FontEditor::openDialog);
}


void FontEditor::setChosenFont(const QFont & font) {
	m_font = font;
	m_text->setText(FontType::fontText(font));
}


void FontEditor::openDialog() {
	// without a style name the dialog selects its first style (perhaps "Oblique"); the style
	// found for the font selects the right one
	QFont start = m_font;
	if (start.styleName().isEmpty())
		start.setStyleName(QFontInfo(m_font).styleName());
	bool ok = false;
	QFont font = QFontDialog::getFont(&ok, start, this, tr("Choose a font"));
	// the style name would override bold and italic set later on
	font.setStyleName(QString());
	// the dialog's font may differ from an equal one in attributes nobody sees or stores
	if (!ok || font.toString() == m_font.toString())
		return;
	setChosenFont(font);
	emit fontChosen();
}

} // namespace QPB
