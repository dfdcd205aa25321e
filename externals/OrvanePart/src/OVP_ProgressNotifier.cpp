#include "OVP_ProgressNotifier.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>

namespace OVP {

ProgressNotifier::Scope::Scope(ProgressNotifier * notifier, const QString & label) :
	m_notifier(notifier)
{
	if (m_notifier != nullptr)
		m_notifier->begin(label);
}


ProgressNotifier::Scope::~Scope() {
	if (m_notifier != nullptr)
		m_notifier->end();
}


ProgressNotifier::ProgressNotifier(QObject * parent) :
	QObject(parent)
{
	m_sinceEvents.start();
}


void ProgressNotifier::begin(const QString & label) {
	// a short read ends before the event loop runs, so that its bar is never painted
	if (m_depth++ == 0)
		m_sinceEvents.restart();
	m_percent = -1;
	emit started(label);
}


void ProgressNotifier::end() {
	Q_ASSERT(m_depth > 0);
	if (--m_depth == 0)
		emit finished();
}


void ProgressNotifier::notify(double fraction) {
	// NaN counts as nothing done
	const int percent = static_cast<int>(std::floor(100*std::min(1.0, std::max(0.0, fraction))));
	if (percent == m_percent)
		return;
	m_percent = percent;
	emit progressChanged(percent);
	if (m_sinceEvents.elapsed() >= m_eventInterval) {
		QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
		m_sinceEvents.restart();
	}
}

} // namespace OVP
