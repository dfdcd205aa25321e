#include "QPB_DialogEditor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace QPB {

DialogEditor::DialogEditor(const Dialog & dialog, QWidget * parent) :
	QWidget(parent),
	m_dialog(dialog),
	m_icon(new QLabel(this)),
	m_text(new QLabel(this))
{
	QToolButton * button = new QToolButton(this);
	button->setText("...");
	QHBoxLayout * layout = new QHBoxLayout(this);
	layout->setContentsMargins(3, 0, 0, 0);
	layout->setSpacing(2);
	layout->addWidget(m_icon);
	layout->addWidget(m_text, 1);
	layout->addWidget(button);
	setFocusProxy(button);
	setAutoFillBackground(true);
	connect(button, &QToolButton::clicked, this, &DialogEditor::openDialog);
}


void DialogEditor::setValue(const QVariant & value, const QString & text, const QIcon & icon) {
	m_value = value;
	m_text->setText(text);
	m_icon->setPixmap(icon.isNull() ? QPixmap() : icon.pixmap(QSize(32, 12)));
	m_icon->setVisible(!icon.isNull());
}


void DialogEditor::openDialog() {
	const QVariant chosen = m_dialog(this, m_value);
	if (!chosen.isValid() || chosen == m_value)
		return;
	m_value = chosen;
	emit valueChosen();
}

} // namespace QPB
