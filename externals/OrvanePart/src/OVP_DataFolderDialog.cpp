#include "OVP_DataFolderDialog.h"

#include <algorithm>

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <QtExt_BrowseFilenameWidget.h>

namespace OVP {

DataFolderDialog::DataFolderDialog(QWidget * parent, const QString & title, const QString & text,
								   const QString & startFolder) :
	QDialog(parent)
{
	setWindowTitle(title);
	QLabel * icon = new QLabel(this);
	const int iconSize = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
	icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(iconSize));
	QLabel * message = new QLabel(text, this);
	message->setWordWrap(true);
	message->setTextInteractionFlags(Qt::TextSelectableByMouse);
	QLabel * label = new QLabel(tr("&Folder of the data:"), this);
	m_folder = new QtExt::BrowseFilenameWidget(QtExt::BrowseFilenameWidget::Directory, this);
	m_folder->setCaption(title);
	m_folder->setFilename(startFolder);
	label->setBuddy(m_folder);

	QDialogButtonBox * buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
	m_ok = buttons->button(QDialogButtonBox::Ok);
	connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
	connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
	connect(m_folder, &QtExt::BrowseFilenameWidget::filenameChanged, this, [this]() {
		m_ok->setEnabled(m_folder->isAcceptable());
	});
	m_ok->setEnabled(m_folder->isAcceptable());

	QGridLayout * layout = new QGridLayout(this);
	layout->addWidget(icon, 0, 0, 3, 1, Qt::AlignTop);
	layout->addWidget(message, 0, 1);
	layout->addWidget(label, 1, 1);
	layout->addWidget(m_folder, 2, 1);
	layout->addWidget(buttons, 3, 0, 1, 2);
	layout->setColumnStretch(1, 1);
	layout->setSizeConstraint(QLayout::SetMinimumSize);
	resize(std::max(sizeHint().width(), 520), sizeHint().height());
	m_folder->setFocus();
}


QString DataFolderDialog::folder() const {
	return m_folder->filename().trimmed();
}

} // namespace OVP
