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
	bool ok = false;
	const QFont font = QFontDialog::getFont(&ok, m_font, this, tr("Choose a font"));
	if (!ok)
		return;
	setChosenFont(font);
	emit fontChosen();
}

} // namespace QPB
