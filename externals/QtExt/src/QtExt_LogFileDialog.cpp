#include "QtExt_LogFileDialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace QtExt {

LogFileDialog::LogFileDialog(QWidget * parent) :
	QDialog(parent),
	m_info(new QLabel(this)),
	m_text(new QPlainTextEdit(this))
{
	setWindowTitle(tr("Log file"));
	m_info->setTextInteractionFlags(Qt::TextSelectableByMouse);
	m_info->setWordWrap(true);
	m_text->setReadOnly(true);
	m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
	m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

	QDialogButtonBox * buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
	QPushButton * reload = buttons->addButton(tr("Reload"), QDialogButtonBox::ActionRole);
	reload->setObjectName("reloadButton");
	connect(reload, &QPushButton::clicked, this, &LogFileDialog::onReload);
	connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->addWidget(m_info);
	layout->addWidget(m_text);
	layout->addWidget(buttons);
	resize(900, 600);
}


void LogFileDialog::setLogFile(const QString & fileName) {
	m_fileName = fileName;
	onReload();
}


QString LogFileDialog::text() const {
	return m_text->toPlainText();
}


void LogFileDialog::onReload() {
	const QString name = QDir::toNativeSeparators(m_fileName);
	QFile file(m_fileName);
	if (!file.open(QIODevice::ReadOnly)) {
		m_info->setText(tr("The log file '%1' cannot be read.").arg(name));
		m_text->clear();
		return;
	}
	QByteArray content;
	if (file.size() > MAX_BYTES) {
		file.seek(file.size() - MAX_BYTES);
		content = file.read(MAX_BYTES);
		// the cut line would be shown in part
		content.remove(0, content.indexOf('\n') + 1);
		m_info->setText(tr("Last lines of the log file '%1':").arg(name));
	}
	else {
		content = file.readAll();
		m_info->setText(tr("Log file '%1':").arg(name));
	}
	m_text->setPlainText(QString::fromUtf8(content));
	scrollToEnd();
}


void LogFileDialog::showEvent(QShowEvent * event) {
	QDialog::showEvent(event);
	scrollToEnd();
}


void LogFileDialog::scrollToEnd() {
	m_text->moveCursor(QTextCursor::End);
	m_text->verticalScrollBar()->setValue(m_text->verticalScrollBar()->maximum());
}

} // namespace QtExt
