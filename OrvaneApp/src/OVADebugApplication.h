#ifndef OVADebugApplicationH
#define OVADebugApplicationH

#include <QApplication>

/*! The application object. It adds the last line of defence against exceptions: a
	ZEB::Exception or std::exception that escapes an event handler is logged and shown in an
	error box with the content of the log file, and the program goes on.
*/
class OVADebugApplication : public QApplication {
	Q_OBJECT
public:
	OVADebugApplication(int & argc, char ** argv);

	/*! Delivers the event like QApplication, catching ZEB::Exception and std::exception. A caught
		exception is logged, shown in the error box and false is returned.
	*/
	bool notify(QObject * receiver, QEvent * event) override;

private:
	/*! Shows the modal error box, with the log file content as detailed text. */
	static void showErrorBox();
};

#endif // OVADebugApplicationH
