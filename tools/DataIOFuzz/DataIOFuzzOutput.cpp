// libFuzzer target for the output file reader DATAIO::DataIO (all variants: generation 6 and 5,
// ASCII and binary). Each input is a file content. Part of it is written first and read, the
// rest is appended and picked up with refresh(), as when a running simulation writes the file
// (when the first part does not read, e.g. its header is incomplete, the whole file is read
// anew); the split point follows from the input's hash, so a saved input reproduces the run.
// A second refresh finds the file unchanged, as a refresh after reading the complete file does,
// so that both take a last line without line end alike.
// Besides "no crash, no sanitizer report" it checks that every failure is a proper error chain,
// that read + refresh gives what reading the complete file gives, and that a container that
// reads completely can be written and read back unchanged.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>

#include "DATAIOFUZZ_Checks.h"
#include "DATAIOFUZZ_TempFile.h"

namespace {

using DATAIOFUZZ::Checks;

/*! Where the input is split into the part present at the first read and the appended part. */
std::size_t splitPoint(const std::uint8_t * data, std::size_t size) {
	std::uint64_t hash = 14695981039346656037ull;
	for (std::size_t i = 0; i < size; ++i)
		hash = (hash ^ data[i])*1099511628211ull;
	return static_cast<std::size_t>(hash % (size + 1));
}

/*! Loads the values of every time point; returns which ones could be loaded. */
std::vector<bool> loadValues(DATAIO::DataIO & dio) {
	std::vector<bool> loaded(dio.timePoints().size(), false);
	for (unsigned int t = 0; t < loaded.size(); ++t) {
		try {
			dio.data(t);
			loaded[t] = true;
		}
		catch (ZEB::Exception & ex) {
			Checks::checkError(ex);
		}
	}
	return loaded;
}

/*! The container after read + refresh and the one read in one go hold the same. */
void compareWithWholeRead(DATAIO::DataIO & refreshed, const std::vector<bool> & loaded, const std::string & path) {
	DATAIO::DataIO whole;
	try {
		whole.read(path);
		whole.refresh();
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
		Checks::fail("the complete file fails to read and refresh, but read + refresh succeeded:\n" + ex.msgWithOrigin());
	}
	if (whole.timePoints().size() != refreshed.timePoints().size())
		Checks::fail("read + refresh and a complete read give different numbers of time points");
	const std::vector<bool> wholeLoaded = loadValues(whole);
	if (wholeLoaded != loaded)
		Checks::fail("read + refresh and a complete read differ in which time points can be loaded");
	Checks::checkSameValues(refreshed.timePoints().data(), whole.timePoints().data(), loaded.size(),
							"time points of read + refresh and of a complete read");
	if (whole.nValues() != refreshed.nValues())
		Checks::fail("read + refresh and a complete read give different numbers of values");
	for (unsigned int t = 0; t < loaded.size(); ++t)
		if (loaded[t])
			Checks::checkSameValues(refreshed.data(t), whole.data(t), whole.nValues(),
									"values of read + refresh and of a complete read at time index " + std::to_string(t));
}

/*! A container whose values all load is written in its own variant and read back. */
void roundTrip(DATAIO::DataIO & dio, const DATAIOFUZZ::TempFile & copy) {
	try {
		dio.dataVector();
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);		// e.g. time points that do not increase
		return;
	}
	try {
		DATAIO::DataIOWriter::write(copy.path(), dio);
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);		// header texts the variant cannot hold
		return;
	}
	DATAIO::DataIO back;
	try {
		back.read(copy.path());
	}
	catch (ZEB::Exception & ex) {
		Checks::fail("a written file does not read back:\n" + ex.msgWithOrigin());
	}
	Checks::checkSameContainer(dio, back, "write and read back");
}

} // namespace


extern "C" int LLVMFuzzerInitialize(int *, char ***) {
	// the reader's warnings (e.g. a last line held back) would flood the output
	ZEB::MessageHandler::current()->setConsoleVerbosityLevel(0);
	return 0;
}


extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size) {
	static const DATAIOFUZZ::TempFile input("output");
	static const DATAIOFUZZ::TempFile copy("output-copy");
	const std::size_t split = splitPoint(data, size);
	input.write(data, split);

	DATAIO::DataIO dio;
	bool prefixRead = false;
	try {
		dio.read(input.path());
		prefixRead = true;
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);		// e.g. the header is not complete yet
	}
	input.append(data + split, size - split);
	try {
		// a container that read the first part follows the growing file, else it reads it anew
		if (prefixRead) {
			dio.refresh();
			dio.refresh();
		}
		else
			dio.read(input.path());
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
		return 0;
	}

	const std::vector<bool> loaded = loadValues(dio);
	if (dio.geometry() != nullptr) {
		try {
			dio.determineDataFormat(dio.geometry());
		}
		catch (ZEB::Exception & ex) {
			Checks::checkError(ex);
		}
	}
	if (prefixRead)
		compareWithWholeRead(dio, loaded, input.path());
	roundTrip(dio, copy);
	return 0;
}
