#ifndef QtExt_LogFileDialogH
#define QtExt_LogFileDialogH

#include <QDialog>
#include <QString>

class QLabel;
class QPlainTextEdit;

namespace QtExt {

/*! Shows a log file as read-only text, scrolled to its end where the newest lines are, with a
	"Reload" button that reads the file again. Of a very large file only the last MAX_BYTES are
	shown. A file that cannot be read is said so above the (then empty) text.
*/
class LogFileDialog : public QDialog {
	Q_OBJECT
public:
	/*! Most bytes read from the end of the file. */
	static constexpr qint64 MAX_BYTES = 4*1024*1024;

	explicit LogFileDialog(QWidget * parent = nullptr);

	/*! Shows the file; reads it at once. */
	void setLogFile(const QString & fileName);
	const QString & logFile() const { return m_fileName; }

	/*! The text shown. */
	QString text() const;

public slots:
	/*! Reads the file again and scrolls to its end. */
	void onReload();

protected:
	/*! Scrolls to the end once the text has its size on screen. */
	void showEvent(QShowEvent * event) override;

private:
	void scrollToEnd();

	QString				m_fileName;
	QLabel *			m_info;
	QPlainTextEdit *	m_text;
};

} // namespace QtExt

#endif // QtExt_LogFileDialogH
