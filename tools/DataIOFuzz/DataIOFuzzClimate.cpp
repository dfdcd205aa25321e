// libFuzzer target for the climate and statistics readers (CCD, WAC, solver statistics of
// generation 5 and 6): each input is offered to every reader's accepts() and read by each of
// them, header alone and whole. Besides "no crash, no sanitizer report, memory bounded" it checks
// that every failure is a proper error chain, that a file whose whole read succeeds has a header
// that reads alone and agrees with it, and that what was read is a well-formed reference
// container: increasing time points, one quantity and a known unit per column.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>
#include <ZEB_UnitList.h>

#include <DATAIO_DataIO.h>

#include <OVP_FileReaderRegistry.h>

#include "DATAIOFUZZ_Checks.h"
#include "DATAIOFUZZ_TempFile.h"

namespace {

using DATAIOFUZZ::Checks;

/*! Swallows the readers' warnings, which would flood the fuzzer's output. */
class QuietHandler : public ZEB::MessageHandler {
public:
	void message(const std::string &, ZEB::MsgType, const char *, int) override {}
};

/*! The header fields a reader fills agree between its readHeader() and its read(). */
void checkSameHeader(const DATAIO::DataIO & header, const DATAIO::DataIO & data, const std::string & reader) {
	if (header.quantity() != data.quantity() || header.timeUnit() != data.timeUnit() ||
		header.startYear() != data.startYear() || header.nums() != data.nums() ||
		header.valueUnit() != data.valueUnit() || header.description() != data.description())
		Checks::fail(reader + ": readHeader() and read() give different headers");
	for (std::size_t i = 0; i < data.nums().size(); ++i)
		if (header.columnQuantity(i) != data.columnQuantity(i) || header.columnUnit(i) != data.columnUnit(i))
			Checks::fail(reader + ": readHeader() and read() give different columns");
}

/*! A container read whole: reference type, known units, increasing time points, all values there. */
void checkContainer(DATAIO::DataIO & data, const std::string & reader) {
	const ZEB::UnitList & units = ZEB::UnitList::instance();
	if (data.type() != DATAIO::DataIO::T_REFERENCE || data.dataFormat() != DATAIO::DataIO::DF_2D ||
		!data.hasColumnProperties() || data.nums().empty() || data.nValues() != data.nums().size())
		Checks::fail(reader + ": not a reference container with one value per column");
	if (units.retrieve(data.timeUnit()) == nullptr)
		Checks::fail(reader + ": unknown time unit '" + data.timeUnit() + "'");
	for (std::size_t i = 0; i < data.nums().size(); ++i)
		if (units.retrieve(data.columnUnit(i)) == nullptr)
			Checks::fail(reader + ": unknown unit '" + data.columnUnit(i) + "'");
	const std::vector<double> & times = data.timePoints();
	if (times.empty())
		Checks::fail(reader + ": read without time points");
	for (std::size_t t = 1; t < times.size(); ++t)
		if (!(times[t] > times[t - 1]))
			Checks::fail(reader + ": time points do not increase");
	try {
		data.dataVector();
	}
	catch (ZEB::Exception & ex) {
		Checks::fail(reader + ": values of a read container do not load:\n" + ex.msgWithOrigin());
	}
}

} // namespace


extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
	static QuietHandler quiet;
	static const bool installed = (ZEB::MessageHandler::setCurrent(&quiet), true);
	(void)installed;
	static const DATAIOFUZZ::TempFile input("climate");
	input.write(data, size);
	const std::string head(reinterpret_cast<const char *>(data), std::min<std::size_t>(size, OVP::FileReader::HEAD_SIZE));

	for (const auto & reader : OVP::FileReaderRegistry::instance().readers()) {
		reader->accepts(input.path(), head);
		DATAIO::DataIO header;
		bool headerRead = false;
		try {
			reader->readHeader(input.path(), header);
			headerRead = true;
		}
		catch (ZEB::Exception & ex) {
			Checks::checkError(ex);
		}
		DATAIO::DataIO whole;
		try {
			reader->read(input.path(), whole);
		}
		catch (ZEB::Exception & ex) {
			Checks::checkError(ex);
			continue;
		}
		if (!headerRead)
			Checks::fail(reader->name() + ": read() succeeds where readHeader() fails");
		checkSameHeader(header, whole, reader->name());
		checkContainer(whole, reader->name());
	}
	return 0;
}
