#include "OVP_UserInteraction.h"

#include <QStringList>

#include <ZEB_Exception.h>

namespace OVP {

QString exceptionText(const ZEB::Exception & ex) {
	QStringList lines;
	for (const ZEB::Exception::MsgInfo & msg : ex.messages())
		lines.append(QString::fromStdString(msg.m_what));
	return lines.join("\n");
}


UserInteraction::~UserInteraction() = default;

} // namespace OVP
