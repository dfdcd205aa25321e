#ifndef ReadProgressWidgetH
#define ReadProgressWidgetH

#include <QWidget>

class QLabel;
class QProgressBar;

namespace OVP {
class ProgressNotifier;
}

/*! The status bar's view of a file being read: the file name and a progress bar, fed by a
	progress notifier. Hidden while nothing is read.
*/
class ReadProgressWidget : public QWidget {
	Q_OBJECT
public:
	explicit ReadProgressWidget(const OVP::ProgressNotifier * notifier, QWidget * parent = nullptr);

private:
	/*! Shows the name of the file that is read now, with its path as tooltip, and an empty bar. */
	void onStarted(const QString & fileName);

	QLabel *		m_label;
	QProgressBar *	m_bar;
};

#endif // ReadProgressWidgetH
