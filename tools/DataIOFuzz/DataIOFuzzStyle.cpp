// libFuzzer target for applying chart style files (SCI::ChartStyleFile::apply) to line, colour
// grid and vector field charts. Each input is a file content. Besides "no crash, no sanitizer
// report" it checks that every refusal is a proper error chain, that the markup scan of the XML
// file check agrees with the parser, and that a chart that took the style saves a style that
// gives a fresh chart the same properties.
#include <cstddef>
#include <cstdint>

#include <ZEB_Exception.h>

#include <Sci_AbstractChartModel.h>
#include <Sci_ChartStyleFile.h>

#include "DATAIOFUZZ_ChartModels.h"
#include "DATAIOFUZZ_GuiEnvironment.h"
#include "DATAIOFUZZ_TempFile.h"
#include "DATAIOFUZZ_XMLChecks.h"

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
	DATAIOFUZZ::GuiEnvironment::start();
	return 0;
}


extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
	static const DATAIOFUZZ::TempFile input("style.o2style");
	static const DATAIOFUZZ::TempFile copy("style-copy.o2style");
	input.write(data, size);
	DATAIOFUZZ::XMLChecks::checkMarkupScan(reinterpret_cast<const char *>(data), size);

	const QString inputPath = QString::fromStdString(input.path());
	const QString copyPath = QString::fromStdString(copy.path());
	DATAIOFUZZ::ChartModels::readAndCopy(
		[&inputPath](SCI::AbstractChartModel & model) { SCI::ChartStyleFile::apply(model, inputPath); },
		[&copyPath](SCI::AbstractChartModel & from, SCI::AbstractChartModel & to) {
			SCI::ChartStyleFile::save(from, copyPath);
			SCI::ChartStyleFile::apply(to, copyPath);
		});
	return 0;
}
