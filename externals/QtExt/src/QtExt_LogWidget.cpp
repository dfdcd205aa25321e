#include "QtExt_LogWidget.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QListView>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <ZEB_MessageHandler.h>

#include "QtExt_LogModel.h"

namespace QtExt {

LogWidget::LogWidget(QWidget * parent) :
	QWidget(parent),
	m_model(new LogModel(this)),
	m_view(new QListView(this))
{
	m_view->setModel(m_model);
	// one line per row: the view then lays out thousands of rows without measuring each
	m_view->setUniformItemSizes(true);
	m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
	m_view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
	// the panel may shrink to a few lines, leaving the room to the charts
	m_view->setMinimumHeight(2*m_view->fontMetrics().height());

	QHBoxLayout * buttons = new QHBoxLayout;
	buttons->setContentsMargins(0, 0, 0, 0);
	buttons->addWidget(addFilterButton(tr("Errors"), { ZEB::MSG_ERROR }));
	buttons->addWidget(addFilterButton(tr("Warnings"), { ZEB::MSG_WARNING }));
	buttons->addWidget(addFilterButton(tr("Messages"), { ZEB::MSG_PROGRESS, ZEB::MSG_CONT }));
	buttons->addWidget(addFilterButton(tr("Debug"), { ZEB::MSG_DEBUG }));
	buttons->addStretch(1);
	QToolButton * clear = new QToolButton(this);
	clear->setText(tr("Clear"));
	clear->setObjectName("clearButton");
	connect(clear, &QToolButton::clicked, m_model, &LogModel::clear);
	buttons->addWidget(clear);

	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->setContentsMargins(2, 2, 2, 2);
	layout->setSpacing(2);
	layout->addLayout(buttons);
	layout->addWidget(m_view);
}


void LogWidget::onMsgReceived(int type, QString msg) {
	const QScrollBar * bar = m_view->verticalScrollBar();
	const bool atEnd = bar->value() == bar->maximum();
	m_model->append(type, msg);
	if (atEnd)
		m_view->scrollToBottom();
}


QCheckBox * LogWidget::addFilterButton(const QString & text, const QList<int> & types) {
	QCheckBox * button = new QCheckBox(this);
	button->setText(text);
	button->setChecked(true);
	button->setToolTip(tr("Shows or hides these messages."));
	connect(button, &QCheckBox::toggled, m_model, [this, types](bool shown) {
		for (int type : types)
			m_model->setTypeShown(type, shown);
		// the newest lines are the ones of interest
		m_view->scrollToBottom();
	});
	return button;
}

} // namespace QtExt
