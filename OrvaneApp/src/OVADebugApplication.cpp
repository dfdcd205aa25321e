#include "OVADebugApplication.h"

#include <exception>

#include <QEvent>
#include <QFile>
#include <QMessageBox>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

#include "OVADirectories.h"

namespace {

/*! A message box that the user can resize, so that a long log in the detailed text can be read.
	QMessageBox fixes its size whenever it lays itself out; this box lifts the limits again.
*/
class ResizableMessageBox : public QMessageBox {
public:
	ResizableMessageBox() {
		setSizeGripEnabled(true);
	}

protected:
	bool event(QEvent * e) override {
		const bool result = QMessageBox::event(e);
		if (e->type() == QEvent::LayoutRequest || e->type() == QEvent::Resize || e->type() == QEvent::Show) {
			setMinimumSize(0, 0);
			setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
		}
		return result;
	}
};

} // namespace


OVADebugApplication::OVADebugApplication(int & argc, char ** argv) :
	QApplication(argc, argv)
{
}


bool OVADebugApplication::notify(QObject * receiver, QEvent * event) {
	FUNCID(OVADebugApplication::notify);
	try {
		return QApplication::notify(receiver, event);
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		ZEB::reportError("ZEB::Exception caught.", FUNC_ID);
	}
	catch (std::exception & ex) {
		ZEB::reportError(ex.what(), FUNC_ID);
		// the same text as above, so that searching the log for it finds every caught exception
		ZEB::reportError("ZEB::Exception caught.", FUNC_ID);
	}
	showErrorBox();
	return false;
}


void OVADebugApplication::showErrorBox() {
	ResizableMessageBox box;
	box.setIcon(QMessageBox::Critical);
	box.setWindowTitle(QString());
	box.setText(tr("Orvane 2 encountered an unexpected error (we certainly didn't want this error to happen :-). "
				   "Please copy the content of the application log file and send the last lines with any potential "
				   "error messages to the developers. Thanks!"));
	// the same version as --version and the About dialog, so that a report names it
	box.setInformativeText(tr("Orvane version %1, log file: %2").arg(ORVANEAPP_VERSION, OVADirectories::logFile()));
	box.setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint
					   | Qt::WindowCloseButtonHint);
	QFile log(OVADirectories::logFile());
	if (log.open(QIODevice::ReadOnly | QIODevice::Text)) {
		const QByteArray content = log.readAll();
		box.setDetailedText(QString::fromUtf8(content.constData(), content.size()));
	}
	box.exec();
}
