#ifndef QtExt_LogWidgetH
#define QtExt_LogWidgetH

#include <QWidget>

class QListView;
class QCheckBox;

namespace QtExt {

class LogModel;

/*! The log panel: the messages of the program as they come in (slot onMsgReceived()), coloured
	by type, with check buttons that show or hide errors, warnings, other messages and debug
	messages, and a button that clears the panel. It follows new messages while it is scrolled to
	the end; scrolled up, it stays where the user looks.
*/
class LogWidget : public QWidget {
	Q_OBJECT
public:
	explicit LogWidget(QWidget * parent = nullptr);

	LogModel * model() const { return m_model; }

public slots:
	/*! Adds a message; type is one of ZEB::MsgType. */
	void onMsgReceived(int type, QString msg);

private:
	/*! A check button that shows or hides the messages of the types. */
	QCheckBox * addFilterButton(const QString & text, const QList<int> & types);

	LogModel *	m_model;
	QListView *	m_view;
};

} // namespace QtExt

#endif // QtExt_LogWidgetH
