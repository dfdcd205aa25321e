#include "QtExt_BrowseFilenameWidget.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

#include "QtExt_InvalidMarking.h"

namespace QtExt {

BrowseFilenameWidget::BrowseFilenameWidget(Mode mode, QWidget * parent) :
	QWidget(parent),
	m_mode(mode)
{
	m_edit = new QLineEdit(this);
	m_edit->installEventFilter(this);
	m_button = new QToolButton(this);
	m_button->setText("...");
	m_button->setToolTip(tr("Browse (F4)"));
	m_button->setFocusPolicy(Qt::StrongFocus);
	QHBoxLayout * layout = new QHBoxLayout(this);
	layout->setContentsMargins(0, 0, 0, 0);
	layout->setSpacing(2);
	layout->addWidget(m_edit, 1);
	layout->addWidget(m_button);
	setFocusProxy(m_edit);

	connect(m_button, &QToolButton::clicked, this, &BrowseFilenameWidget::browse);
	connect(m_edit, &QLineEdit::textChanged, this, [this](const QString & text) {
		updateMarking();
		emit filenameChanged(text);
	});
	updateMarking();
}


void BrowseFilenameWidget::setMode(Mode mode) {
	m_mode = mode;
	updateMarking();
}


void BrowseFilenameWidget::setFilter(const QString & filter) {
	m_filter = filter;
}


void BrowseFilenameWidget::setCaption(const QString & caption) {
	m_caption = caption;
}


QString BrowseFilenameWidget::filename() const {
	return m_edit->text();
}


void BrowseFilenameWidget::setFilename(const QString & filename) {
	m_edit->setText(filename);
}


bool BrowseFilenameWidget::isAcceptable() const {
	const QString path = filename().trimmed();
	if (path.isEmpty())
		return false;
	const QFileInfo info(path);
	switch (m_mode) {
		case OpenFile :		return info.isFile();
		case Directory :	return info.isDir();
		default :			return !info.isDir();
	}
}


void BrowseFilenameWidget::browse() {
	QString path;
	switch (m_mode) {
		case OpenFile :
			path = QFileDialog::getOpenFileName(this, m_caption, startPath(), m_filter);
			break;
		case SaveFile :
			path = QFileDialog::getSaveFileName(this, m_caption, startPath(), m_filter);
			break;
		case Directory :
			path = QFileDialog::getExistingDirectory(this, m_caption, startPath());
			break;
	}
	if (!path.isEmpty())
		setFilename(QDir::toNativeSeparators(path));
	m_edit->setFocus();
}


bool BrowseFilenameWidget::eventFilter(QObject * watched, QEvent * event) {
	if (watched == m_edit && event->type() == QEvent::KeyPress
		&& static_cast<QKeyEvent *>(event)->key() == Qt::Key_F4)
	{
		browse();
		return true;
	}
	return QWidget::eventFilter(watched, event);
}


void BrowseFilenameWidget::updateMarking() {
	const QString path = filename().trimmed();
	// an empty field is not wrong yet, only incomplete
	const bool wrong = !path.isEmpty() && m_mode != SaveFile && !isAcceptable();
	setInvalidMarking(m_edit, wrong);
	if (!wrong)
		m_edit->setToolTip(QString());
	else if (QFileInfo::exists(path))
		m_edit->setToolTip(m_mode == Directory ? tr("'%1' is not a folder.").arg(path)
											   : tr("'%1' is not a file.").arg(path));
	else
		m_edit->setToolTip(m_mode == Directory ? tr("The folder '%1' does not exist.").arg(path)
											   : tr("The file '%1' does not exist.").arg(path));
}


QString BrowseFilenameWidget::startPath() const {
	const QString path = filename().trimmed();
	if (path.isEmpty())
		return QString();
	const QFileInfo info(path);
	if (info.exists() || (m_mode == SaveFile && info.absoluteDir().exists()))
		return info.absoluteFilePath();
	QString folder = info.absolutePath();
	while (!QFileInfo(folder).isDir()) {
		const QString above = QFileInfo(folder).absolutePath();
		if (above == folder)
			return QString();
		folder = above;
	}
	return folder;
}

} // namespace QtExt
