// libFuzzer target for the chart model readers (readXML of the line, colour grid and vector
// field models with their axes and chart properties). Each input is an XML file; its root
// element is handed to the readers as the chart's parent element (the ChartModel element of a
// session or style file). Besides "no crash, no sanitizer report" it checks that every refusal
// is a proper error chain, that the markup scan of the XML file check agrees with the parser,
// and that a chart that reads is written and read back with the same properties.
#include <cstddef>
#include <cstdint>

#include <tinyxml.h>

#include <ZEB_Exception.h>

#include <Sci_AbstractChartModel.h>
#include <Sci_XMLFile.h>

#include "DATAIOFUZZ_ChartModels.h"
#include "DATAIOFUZZ_Checks.h"
#include "DATAIOFUZZ_GuiEnvironment.h"
#include "DATAIOFUZZ_TempFile.h"
#include "DATAIOFUZZ_XMLChecks.h"

namespace {

/*! Writes from with all properties into an XML text, parses it and reads it into to, so that
	TinyXML's encoding of the text takes part.
*/
void copyThroughText(SCI::AbstractChartModel & from, SCI::AbstractChartModel & to) {
	TiXmlDocument doc;
	TiXmlElement * parent = new TiXmlElement("ChartModel");
	doc.LinkEndChild(parent);
	from.setWriteAll(true);
	from.writeXML(parent);
	TiXmlPrinter printer;
	doc.Accept(&printer);
	TiXmlDocument back;
	back.Parse(printer.CStr(), nullptr, TIXML_ENCODING_UTF8);
	if (back.Error())
		DATAIOFUZZ::Checks::fail(std::string("written chart XML does not parse: ") + back.ErrorDesc() + "\n" + printer.CStr());
	to.readXML(back.RootElement());
}

} // namespace


extern "C" int LLVMFuzzerInitialize(int *, char ***) {
	DATAIOFUZZ::GuiEnvironment::start();
	return 0;
}


extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
	static const DATAIOFUZZ::TempFile input("chart.xml");
	input.write(data, size);
	DATAIOFUZZ::XMLChecks::checkMarkupScan(reinterpret_cast<const char *>(data), size);

	TiXmlDocument doc;
	try {
		SCI::XMLFile::load(doc, QString::fromStdString(input.path()), "Error in line %1 of file '%2':\n%3",
						   "[DataIOFuzzChart]");
	}
	catch (ZEB::Exception & ex) {
		DATAIOFUZZ::Checks::checkError(ex);
		return 0;
	}
	const TiXmlElement * root = doc.RootElement();
	if (root == nullptr)
		return 0;
	DATAIOFUZZ::ChartModels::readAndCopy([root](SCI::AbstractChartModel & model) { model.readXML(root); },
										 copyThroughText);
	return 0;
}
