#ifndef DroppedFileOpenerH
#define DroppedFileOpenerH

#include <QCoreApplication>
#include <QList>
#include <QUrl>

class QMimeData;
class MainView;
class SessionPanel;

/*! Opens what the user drops from a file manager onto the main window, each path in turn: a
	session file (*.o2) replaces the session (the current one may be saved first), a result file
	(a name matching the FileNameFilter setting) has its folder checked in the session's
	directories (added as top-level directory unless it lies below one) and its row selected in
	the data manager, and a folder becomes a top-level directory. Anything else is reported to
	the user and changes nothing.
*/
class DroppedFileOpener {
	Q_DECLARE_TR_FUNCTIONS(DroppedFileOpener)
public:
	/*! Opens sessions through mainView and directories and files in sessionPanel; both must
		outlive the opener.
	*/
	DroppedFileOpener(MainView & mainView, SessionPanel & sessionPanel);

	/*! True when data holds URLs from outside: they are taken, and what cannot be opened is
		reported.
	*/
	static bool accepts(const QMimeData * data);
	/*! Opens the dropped URLs in order. */
	void open(const QList<QUrl> & urls);

private:
	/*! Opens one local path; reports what it cannot open. */
	void openPath(const QString & path);

	MainView &		m_mainView;
	SessionPanel &	m_sessionPanel;
};

#endif // DroppedFileOpenerH
