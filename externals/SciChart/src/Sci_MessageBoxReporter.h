#ifndef Sci_MessageBoxReporterH
#define Sci_MessageBoxReporterH

#include <QString>

class QWidget;

namespace SCI {

/*! Shows the error messages of the export dialog and the colour map editor. The default shows
	modal message boxes; tests install a subclass that records the messages instead of blocking.
*/
class MessageBoxReporter {
public:
	virtual ~MessageBoxReporter() = default;

	/*! Shows a critical message with the given window title. */
	virtual void critical(QWidget * parent, const QString & title, const QString & text);
};

} // namespace SCI

#endif // Sci_MessageBoxReporterH
