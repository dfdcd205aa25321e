// libFuzzer target for the colour-map file reader SCI::ColorMapFile::load. Each input is a file
// content. Besides "no crash, no sanitizer report" it checks that every refusal is a proper
// error chain, that the markup scan of the XML file check agrees with the parser (see
// XMLChecks::checkMarkupScan), and that a colour map that reads is saved and read back equal.
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>

#include <ZEB_Exception.h>

#include <Sci_ColorMapFile.h>

#include "DATAIOFUZZ_Checks.h"
#include "DATAIOFUZZ_GuiEnvironment.h"
#include "DATAIOFUZZ_TempFile.h"
#include "DATAIOFUZZ_XMLChecks.h"

using DATAIOFUZZ::Checks;

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
	DATAIOFUZZ::GuiEnvironment::start();
	return 0;
}


extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
	static const DATAIOFUZZ::TempFile input("colormap.o2colormap");
	static const DATAIOFUZZ::TempFile copy("colormap-copy.o2colormap");
	input.write(data, size);
	DATAIOFUZZ::XMLChecks::checkMarkupScan(reinterpret_cast<const char *>(data), size);

	SCI::ColorMap map;
	try {
		map = SCI::ColorMapFile::load(QString::fromStdString(input.path()));
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
		return 0;
	}
	SCI::ColorMap back;
	try {
		SCI::ColorMapFile::save(map, QString::fromStdString(copy.path()));
		back = SCI::ColorMapFile::load(QString::fromStdString(copy.path()));
	}
	catch (ZEB::Exception & ex) {
		Checks::fail("a colour map that was read does not save and read back:\n" + ex.msgWithOrigin());
	}
	if (back != map) {
		std::ostringstream written;
		written << std::ifstream(copy.path()).rdbuf();
		Checks::fail("a colour map reads back different after saving:\n" + written.str());
	}
	return 0;
}
