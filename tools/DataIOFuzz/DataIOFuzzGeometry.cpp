// libFuzzer target for the geometry reader DATAIO::GeoFile: each input is read as a geometry
// file (ASCII or binary), as the ASCII sections of a generation-5 embedded geometry, and as the
// binary geometry data of a generation-5 binary file. Besides "no crash, no sanitizer report" it
// checks that every failure is a proper error chain and that a geometry that reads can be
// written in both forms and read back unchanged.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include <ZEB_Exception.h>

#include <DATAIO_GeoFile.h>
#include <DATAIO_GeoFileWriter.h>

#include "DATAIOFUZZ_Checks.h"
#include "DATAIOFUZZ_TempFile.h"

namespace {

using DATAIOFUZZ::Checks;

/*! Writes the geometry in both forms and reads it back. */
void roundTrip(const DATAIO::GeoFile & geo, const DATAIOFUZZ::TempFile & copy) {
	for (bool binary : { false, true }) {
		try {
			DATAIO::GeoFileWriter::write(copy.path(), geo, binary);
		}
		catch (ZEB::Exception & ex) {
			Checks::checkError(ex);		// material names the ASCII form cannot hold
			continue;
		}
		DATAIO::GeoFile back;
		try {
			back.read(copy.path());
		}
		catch (ZEB::Exception & ex) {
			Checks::fail(std::string("a written ") + (binary ? "binary" : "ASCII") +
						 " geometry does not read back:\n" + ex.msgWithOrigin());
		}
		Checks::checkSameGeometry(geo, back, binary ? "binary write and read back" : "ASCII write and read back");
	}
}

} // namespace


extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
	static const DATAIOFUZZ::TempFile input("geometry");
	static const DATAIOFUZZ::TempFile copy("geometry-copy");
	input.write(data, size);
	const std::string text(reinterpret_cast<const char *>(data), size);

	DATAIO::GeoFile geo;
	bool read = false;
	try {
		geo.read(input.path());
		read = true;
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
	}
	if (read)
		roundTrip(geo, copy);

	DATAIO::GeoFile sections;
	try {
		sections.parseGeometryData(text);
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
	}

	DATAIO::GeoFile binaryData;
	std::istringstream in(text);
	try {
		binaryData.readBinaryGeometryData(in, size);
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
	}
	return 0;
}
