#include "OVP_TableFileReader.h"

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_TableBody.h"
#include "OVP_TableFile.h"
#include "OVP_TableLayout.h"

namespace OVP {

void TableFileReader::readHeader(const std::string & fileName, DATAIO::DataIO & container) const {
	FUNCID(TableFileReader::readHeader);
	try {
		TableFile file(fileName);
		layout(file).fillHeader(fileName, container);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot read the header of %1 '%2'.").arg(name()).arg(fileName), FUNC_ID);
	}
}


void TableFileReader::read(const std::string & fileName, DATAIO::DataIO & container,
						   ZEB::NotificationHandler * notification) const
{
	FUNCID(TableFileReader::read);
	try {
		TableFile file(fileName);
		const TableLayout tableLayout = layout(file);
		tableLayout.fillHeader(fileName, container);
		TableBody(file, tableLayout).read(container, notification);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot read %1 '%2'.").arg(name()).arg(fileName), FUNC_ID);
	}
}

} // namespace OVP
