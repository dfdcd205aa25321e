#include "Sci_XMLFileCheck.h"

#include <algorithm>
#include <cstring>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_WideString.h>

#include "Sci_XMLFileMarkupScan.h"

namespace SCI {

namespace {

/*! Line number (from 1) of the byte at offset. */
std::size_t lineAt(const char * data, std::size_t offset) {
	return 1 + static_cast<std::size_t>(std::count(data, data + offset, '\n'));
}

} // namespace


void XMLFileCheck::check(const char * data, std::size_t size, const std::string & fileName) {
	FUNCID(XMLFileCheck::check);
	const char * nul = static_cast<const char *>(std::memchr(data, '\0', size));
	if (nul != nullptr) {
		const std::size_t offset = static_cast<std::size_t>(nul - data);
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' contains a NUL byte at byte offset %2 (line %3).")
							 .arg(fileName).arg(offset).arg(lineAt(data, offset)), FUNC_ID);
	}
	const std::size_t invalid = ZEB::invalidUTF8Offset(data, size);
	if (invalid < size)
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' is not UTF-8 text: invalid or incomplete byte sequence "
												"at byte offset %2 (line %3).")
							 .arg(fileName).arg(invalid).arg(lineAt(data, invalid)), FUNC_ID);

	const XMLFileMarkupScan scan(data, size, MAX_NESTING_DEPTH, MAX_ATTRIBUTES);
	if (scan.depth() > MAX_NESTING_DEPTH)
		throw ZEB::Exception(ZEB::MessageFormat("Elements in file '%1' are nested more than %2 levels deep "
												"at byte offset %3 (line %4).")
							 .arg(fileName).arg(MAX_NESTING_DEPTH).arg(scan.depthOffset())
							 .arg(lineAt(data, scan.depthOffset())), FUNC_ID);
	if (scan.attributes() > MAX_ATTRIBUTES)
		throw ZEB::Exception(ZEB::MessageFormat("An element in file '%1' has more than %2 attributes "
												"at byte offset %3 (line %4).")
							 .arg(fileName).arg(MAX_ATTRIBUTES).arg(scan.attributesOffset())
							 .arg(lineAt(data, scan.attributesOffset())), FUNC_ID);
}


} // namespace SCI
