#ifndef QtExt_DoNotShowAgainMessageH
#define QtExt_DoNotShowAgainMessageH

#include <QCoreApplication>
#include <QString>

class QWidget;

namespace QtExt {

class Settings;

/*! An information box with a "Do not show this again" check box. Once the user checked it, the
	box with that id stays hidden; the choice is kept in Settings (DoNotShowAgainDialogs) and the
	preferences can show all such boxes again.
*/
class DoNotShowAgainMessage {
	Q_DECLARE_TR_FUNCTIONS(DoNotShowAgainMessage)
public:
	/*! Shows the information unless the user asked not to see dialogID again; returns true when
		the box was shown.
	*/
	static bool information(QWidget * parent, Settings & settings, const QString & dialogID,
							const QString & title, const QString & text);
};

} // namespace QtExt

#endif // QtExt_DoNotShowAgainMessageH
