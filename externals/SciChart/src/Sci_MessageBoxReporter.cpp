#include "Sci_MessageBoxReporter.h"

#include <QMessageBox>

namespace SCI {

void MessageBoxReporter::critical(QWidget * parent, const QString & title, const QString & text) {
	QMessageBox::critical(parent, title, text);
}

} // namespace SCI
