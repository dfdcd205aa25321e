#ifndef AboutDialogH
#define AboutDialogH

#include <QDialog>

/*! The "About Orvane" dialog: program name and version, the versions of Qt and Qwt, the licence
	line and the path of the log file.
*/
class AboutDialog : public QDialog {
	Q_OBJECT
public:
	explicit AboutDialog(QWidget * parent = nullptr);

	/*! The dialog's text (rich text). */
	static QString text();
};

#endif // AboutDialogH
