// libFuzzer target for the table readers: CSV/TSV tables (OVP::TableReader) and logger CSV
// exports (OVP::LoggerReader). Each input is written as a .csv file and handed to both readers:
// accepts(), readHeader() and read(). Besides "no crash, no sanitizer report, no stray
// exception" it checks that every failure is a proper error chain and that a container that
// reads is consistent: one quantity and unit per data set, time points that increase, every
// time point's values loadable, and readHeader() giving the header that read() gives.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

#include <DATAIO_DataIO.h>

#include <OVP_FileReader.h>
#include <OVP_LoggerReader.h>
#include <OVP_TableReader.h>

#include "DATAIOFUZZ_Checks.h"
#include "DATAIOFUZZ_TempFile.h"

namespace {

using DATAIOFUZZ::Checks;

/*! The container read by a reader is consistent in itself and with its header alone. */
void checkContainer(DATAIO::DataIO & dio, const DATAIO::DataIO & header) {
	const std::size_t n = dio.nums().size();
	if (n == 0 || dio.nValues() != n || !dio.hasColumnProperties())
		Checks::fail("a read container has no data sets or a value count that differs from its data sets");
	if (header.nums().size() != n || header.timeUnit() != dio.timeUnit() || header.startYear() != dio.startYear() ||
		header.quantity() != dio.quantity())
		Checks::fail("readHeader() and read() give different headers");
	for (std::size_t i = 0; i < n; ++i)
		if (header.columnQuantity(i) != dio.columnQuantity(i) || header.columnUnit(i) != dio.columnUnit(i) ||
			dio.columnUnit(i).empty())
			Checks::fail("readHeader() and read() give different quantities or units, or a unit is empty");
	const std::vector<double> & t = dio.timePoints();
	if (t.empty())
		Checks::fail("a read container has no time points");
	for (std::size_t i = 0; i < t.size(); ++i) {
		if (!std::isfinite(t[i]) || (i > 0 && !(t[i] > t[i - 1])))
			Checks::fail("time points of a read container are not finite or do not increase");
		const double * values = dio.data(static_cast<unsigned int>(i));
		for (std::size_t k = 0; k < n; ++k)
			if (std::isinf(values[k]))
				Checks::fail("a read value is infinite");
	}
}

void readWith(const OVP::FileReader & reader, const std::string & path, const std::string & head) {
	reader.accepts(path, head);
	DATAIO::DataIO header;
	try {
		reader.readHeader(path, header);
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
	}
	DATAIO::DataIO dio;
	try {
		reader.read(path, dio);
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
		return;
	}
	if (header.nums().empty())
		Checks::fail("read() takes a file whose header readHeader() refuses");
	checkContainer(dio, header);
}

} // namespace


extern "C" int LLVMFuzzerInitialize(int *, char ***) {
	// warnings (unknown units, date order, event columns) would flood the output
	ZEB::MessageHandler::current()->setConsoleVerbosityLevel(0);
	return 0;
}


extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
	static const DATAIOFUZZ::TempFile input("table.csv");
	static const OVP::LoggerReader logger;
	static const OVP::TableReader table;
	input.write(data, size);
	const std::string head(reinterpret_cast<const char *>(data), std::min(size, OVP::FileReader::HEAD_SIZE));
	readWith(logger, input.path(), head);
	readWith(table, input.path(), head);
	return 0;
}
