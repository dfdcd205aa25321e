#ifndef OVP_ProgressNotifierH
#define OVP_ProgressNotifierH

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <ZEB_NotificationHandler.h>

namespace OVP {

/*! Turns the progress that file readers report into signals for a progress bar, and keeps the
	window painted while the GUI thread reads: now and then, when the percentage changed, it lets
	the event loop run paint events and timers, but holds back mouse and keyboard input, so that
	the user cannot start a second action in the middle of a read.

	Reads are announced with begin() and end() (or a Scope); they may nest, and finished() comes
	when the outermost read ends.
*/
class ProgressNotifier : public QObject, public ZEB::NotificationHandler {
	Q_OBJECT
public:
	/*! Least time between two turns of the event loop during a read, in milliseconds. */
	static constexpr int EVENT_INTERVAL_MS = 50;

	/*! Begins a read on construction and ends it on destruction, also when the read throws. A
		null notifier does nothing.
	*/
	class Scope {
	public:
		Scope(ProgressNotifier * notifier, const QString & label);
		~Scope();
		Scope(const Scope &) = delete;
		Scope & operator=(const Scope &) = delete;
	private:
		ProgressNotifier *	m_notifier;
	};

	explicit ProgressNotifier(QObject * parent = nullptr);

	/*! The event loop runs at most once per interval (milliseconds) during a read. */
	void setEventInterval(int ms) { m_eventInterval = ms; }

	/*! A read of what the label names (a file path) begins. */
	void begin(const QString & label);
	/*! The read begun last has ended. */
	void end();
	/*! True between the first begin() and the matching end(). */
	bool isActive() const { return m_depth > 0; }

	/*! Announces the new percentage when it changed and, at most once per interval, lets the
		event loop run without user input.
	*/
	void notify(double fraction) override;

signals:
	/*! A read begins (also a nested one); the label names what is read. */
	void started(const QString & label);
	/*! The read is at this percentage, 0..100. */
	void progressChanged(int percent);
	/*! The outermost read has ended, successfully or not. */
	void finished();

private:
	int				m_eventInterval = EVENT_INTERVAL_MS;
	/*! Number of reads begun and not yet ended. */
	int				m_depth = 0;
	/*! Percentage announced last; -1 when none since the last begin(). */
	int				m_percent = -1;
	/*! Time since the event loop ran last, or since the outermost read began. */
	QElapsedTimer	m_sinceEvents;
};

} // namespace OVP

#endif // OVP_ProgressNotifierH
