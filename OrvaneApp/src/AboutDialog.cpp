#include "AboutDialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

#include <qwt_global.h>

#include "OVADirectories.h"

AboutDialog::AboutDialog(QWidget * parent) :
	QDialog(parent)
{
	setWindowTitle(tr("About Orvane"));
	QLabel * icon = new QLabel;
	icon->setPixmap(QPixmap(":/gfx/OrvaneApp_64x64.png"));
	icon->setAlignment(Qt::AlignTop);
	QLabel * label = new QLabel(text());
	label->setTextFormat(Qt::RichText);
	label->setTextInteractionFlags(Qt::TextBrowserInteraction);
	label->setWordWrap(true);
	label->setObjectName("AboutText");
	QHBoxLayout * content = new QHBoxLayout;
	content->addWidget(icon);
	content->addWidget(label, 1);

	QDialogButtonBox * buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
	connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->addLayout(content);
	layout->addWidget(buttons);
	setMinimumWidth(480);
}


QString AboutDialog::text() {
	return tr("<h3>Orvane %1</h3>"
			  "<p>Charts of building-physics simulation results.</p>"
			  "<p>Qt %2 (built with %3), Qwt %4</p>"
			  "<p>Uses Qt under the GNU LGPL version 3 and Qwt under the Qwt License 1.0.</p>"
			  "<p>Log file: %5</p>")
			.arg(ORVANEAPP_VERSION, qVersion(), QT_VERSION_STR, QWT_VERSION_STR,
				 OVADirectories::logFile().toHtmlEscaped());
}
