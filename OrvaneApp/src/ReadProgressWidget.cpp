#include "ReadProgressWidget.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include <OVP_ProgressNotifier.h>

ReadProgressWidget::ReadProgressWidget(const OVP::ProgressNotifier * notifier, QWidget * parent) :
	QWidget(parent),
	m_label(new QLabel(this)),
	m_bar(new QProgressBar(this))
{
	QHBoxLayout * layout = new QHBoxLayout(this);
	layout->setContentsMargins(0, 0, 0, 0);
	layout->addWidget(m_label);
	layout->addWidget(m_bar);
	// the name stays next to the bar when the status bar gives the widget more room
	m_label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
	m_bar->setRange(0, 100);
	m_bar->setFixedWidth(200);
	hide();
	connect(notifier, &OVP::ProgressNotifier::started, this, &ReadProgressWidget::onStarted);
	connect(notifier, &OVP::ProgressNotifier::progressChanged, m_bar, &QProgressBar::setValue);
	connect(notifier, &OVP::ProgressNotifier::finished, this, &QWidget::hide);
}


void ReadProgressWidget::onStarted(const QString & fileName) {
	m_label->setText(tr("Reading %1").arg(QFileInfo(fileName).fileName()));
	m_label->setToolTip(fileName);
	m_bar->setValue(0);
	show();
}
