#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <fstream>
#include <random>
#include <thread>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>

#include "DATAIO_TestUtils.h"

using DATAIO::DataIO;
using namespace DATAIO_Test;

namespace {

/*! Value i of the record with time index t, as the growing-file writers produce them. */
double expectedValue(std::size_t t, unsigned int i) {
	return static_cast<double>(t)*1000.0 + i + 0.125;
}

/*! The bytes of one record, as the writer produces them, taken from a file written with it. */
std::string recordBytes(bool binary, std::size_t t, unsigned int n) {
	DataIO header = sampleContainer(binary, false, DataIO::T_FIELD, DataIO::ST_SINGLE, n, 0);
	const std::string fname = scratchFile("onerecord.out");
	DATAIO::DataIOWriter writer;
	writer.open(fname, header);
	writer.flush();
	const std::size_t headerSize = readBytes(fname).size();
	std::vector<double> v;
	for (unsigned int i = 0; i < n; ++i)
		v.push_back(expectedValue(t, i));
	writer.appendRecord(static_cast<double>(t), v.data(), n);
	writer.close();
	const std::string all = readBytes(fname);
	return all.substr(headerSize);
}

/*! The header bytes of a growing file. */
std::string headerBytes(bool binary, unsigned int n) {
	DataIO header = sampleContainer(binary, false, DataIO::T_FIELD, DataIO::ST_SINGLE, n, 0);
	const std::string fname = scratchFile("header.out");
	DATAIO::DataIOWriter::write(fname, header);
	return readBytes(fname);
}

} // namespace


TEST(DataIORefresh, RecordWrittenInPiecesAppearsWithThePieceThatCompletesIt) {
	// a writer appends each record in three pieces (time point, half the values, the rest) and
	// the reader refreshes after each piece: only complete records are listed, all of them load
	for (bool binary : { false, true }) {
		SCOPED_TRACE(binary ? "binary" : "ASCII");
		const unsigned int n = 4;
		const std::string fname = scratchFile("growing.out");
		writeBytes(fname, headerBytes(binary, n));
		DataIO dio;
		dio.read(fname);
		for (std::size_t t = 0; t < 3; ++t) {
			const std::string r = recordBytes(binary, t, n);
			const std::size_t timeEnd = binary ? 8 : r.find('\t') + 1;
			const std::size_t half = timeEnd + (r.size() - timeEnd)/2;
			appendBytes(fname, r.substr(0, timeEnd));
			EXPECT_EQ(dio.refresh(), DataIO::RR_UNCHANGED);
			appendBytes(fname, r.substr(timeEnd, half - timeEnd));
			EXPECT_EQ(dio.refresh(), DataIO::RR_UNCHANGED);
			EXPECT_EQ(dio.timePoints().size(), t);
			appendBytes(fname, r.substr(half));
			EXPECT_EQ(dio.refresh(), DataIO::RR_APPENDED);
			ASSERT_EQ(dio.timePoints().size(), t + 1);
			EXPECT_EQ(dio.timePoints()[t], static_cast<double>(t));
			const double * all = dio.dataVector();
			for (unsigned int i = 0; i < n; ++i)
				EXPECT_EQ(all[t*n + i], expectedValue(t, i));
		}
		EXPECT_EQ(dio.refresh(), DataIO::RR_UNCHANGED);
		EXPECT_EQ(dio.fileSize(), readBytes(fname).size());
	}
}


TEST(DataIORefresh, LastLineWithoutLineEndWaitsUntilTheFileStopsChanging) {
	MessageRecorder warnings(ZEB::MSG_WARNING);
	const std::string fname = scratchFile("lastline.d6o");
	writeBytes(fname, "S6OAQXV! 06.0000\nTYPE = FIELD\nSPACE_TYPE = SINGLE\nINDICES = 4 5 6\n0 1 2 3\n10 4 5 6");
	DataIO dio;
	dio.read(fname);
	EXPECT_EQ(dio.timePoints(), (std::vector<double>{ 0 }));
	// the file has not changed since: the line is taken
	EXPECT_EQ(dio.refresh(), DataIO::RR_APPENDED);
	EXPECT_EQ(dio.data(1)[2], 6.0);
	EXPECT_EQ(dio.refresh(), DataIO::RR_UNCHANGED);
	// the writer had not finished it: the line is read again
	appendBytes(fname, "5\n20 7 8");
	EXPECT_EQ(dio.refresh(), DataIO::RR_APPENDED);
	EXPECT_EQ(dio.timePoints(), (std::vector<double>{ 0, 10 }));
	EXPECT_EQ(dio.data(1)[2], 65.0);
	// a last line that lacks values waits while the file is unchanged; an explicit refresh takes it
	EXPECT_EQ(dio.refresh(), DataIO::RR_UNCHANGED);
	EXPECT_EQ(dio.refresh(DataIO::RM_EXPLICIT), DataIO::RR_APPENDED);
	EXPECT_EQ(dio.timePoints(), (std::vector<double>{ 0, 10, 20 }));
	EXPECT_THROW_MSG(dio.data(2), "Not enough values for time index 2 in output file, only got 2 values, but needed 3.");
	// one warning, naming file and line; later held-back lines go to the log only
	ASSERT_EQ(warnings.m_texts.size(), 1u);
	EXPECT_NE(warnings.m_texts[0].find("file '" + fname + "' (line 6) has no line end"), std::string::npos);
}


TEST(DataIORefresh, ReadsOnlyTheAppendedBytes) {
	// an earlier record changed in place is not read again, which shows that refresh reads only
	// what was appended; a change near the end of the last record means a rewritten file
	for (bool binary : { false, true }) {
		const unsigned int n = 12;
		const std::string fname = scratchFile("appendonly.out");
		std::string content = headerBytes(binary, n);
		const std::size_t firstRecord = content.size();
		for (std::size_t t = 0; t < 4; ++t)
			content += recordBytes(binary, t, n);
		writeBytes(fname, content);
		DataIO dio;
		dio.read(fname);
		// the time point of record 0 becomes 9 (ASCII "0" -> "9", binary: 8 other bytes)
		std::string changed = content;
		if (binary) {
			const double nine = 9;
			std::memcpy(&changed[firstRecord], &nine, sizeof(nine));
		}
		else {
			changed[firstRecord] = '9';
		}
		writeBytes(fname, changed + recordBytes(binary, 4, n));
		EXPECT_EQ(dio.refresh(), DataIO::RR_APPENDED);
		ASSERT_EQ(dio.timePoints().size(), 5u);
		EXPECT_EQ(dio.timePoints()[0], 0.0);
		EXPECT_EQ(dio.timePoints()[4], 4.0);

		// the end of the last record taken changed: the file is read again from the start
		std::string rewritten = readBytes(fname);
		rewritten[rewritten.size() - 3] = binary ? static_cast<char>(rewritten[rewritten.size() - 3] ^ 1) : '7';
		rewritten += recordBytes(binary, 5, n);
		writeBytes(fname, rewritten);
		EXPECT_EQ(dio.refresh(), DataIO::RR_RELOADED);
		EXPECT_EQ(dio.timePoints().size(), 6u);
		EXPECT_EQ(dio.timePoints()[0], 9.0);

		// a shorter file, and a changed header, are read again as well
		writeBytes(fname, content);
		EXPECT_EQ(dio.refresh(), DataIO::RR_RELOADED);
		EXPECT_EQ(dio.timePoints().size(), 4u);
		DataIO other = sampleContainer(binary, false, DataIO::T_FIELD, DataIO::ST_SINGLE, n, 0);
		other.setQuantity("Temperature");
		DATAIO::DataIOWriter::write(fname, other);
		appendBytes(fname, recordBytes(binary, 0, n) + recordBytes(binary, 1, n) + recordBytes(binary, 2, n) +
					recordBytes(binary, 3, n) + recordBytes(binary, 4, n));
		EXPECT_EQ(dio.refresh(), DataIO::RR_RELOADED);
		EXPECT_EQ(dio.quantity(), "Temperature");
		EXPECT_EQ(dio.timePoints().size(), 5u);

		// a file that disappears fails the refresh; once it is back, refresh reads it again
		std::remove(fname.c_str());
		EXPECT_THROW(dio.refresh(), ZEB::Exception);
		writeBytes(fname, content);
		EXPECT_EQ(dio.refresh(), DataIO::RR_RELOADED);
		EXPECT_EQ(dio.timePoints().size(), 4u);

		// a container whose header alone was read gets all records with the first refresh
		DataIO headerOnly;
		headerOnly.openAndReadHeader(fname);
		EXPECT_TRUE(headerOnly.timePoints().empty());
		EXPECT_EQ(headerOnly.refresh(), DataIO::RR_APPENDED);
		EXPECT_EQ(headerOnly.timePoints().size(), 4u);
	}
}


TEST(DataIORefresh, ConcurrentWriterNeverYieldsATornTimePoint) {
	// a writer thread appends records in random pieces while this thread refreshes; every time
	// point seen must be the right one, and its values must load and be right
	for (bool binary : { false, true }) {
		SCOPED_TRACE(binary ? "binary" : "ASCII");
		const unsigned int n = 5;
		const std::size_t records = 400;
		const std::string fname = scratchFile(binary ? "concurrent.d6b" : "concurrent.d6o");
		std::string stream;
		for (std::size_t t = 0; t < records; ++t)
			stream += recordBytes(binary, t, n);
		writeBytes(fname, headerBytes(binary, n));

		std::atomic<bool> done(false);
		std::thread writer([&]() {
			std::ofstream out(fname, std::ios::binary | std::ios::app);
			std::mt19937 gen(99);
			std::size_t pos = 0;
			while (pos < stream.size()) {
				const std::size_t piece = std::min<std::size_t>(1 + gen() % 40, stream.size() - pos);
				out.write(stream.data() + pos, static_cast<std::streamsize>(piece));
				out.flush();
				pos += piece;
				if (gen() % 8 == 0)
					std::this_thread::yield();
			}
			done = true;
		});

		DataIO dio;
		dio.read(fname);
		std::size_t checkedValues = 0;
		bool finished = false;
		while (!finished) {
			finished = done;
			dio.refresh();
			const std::vector<double> & tp = dio.timePoints();
			for (std::size_t t = 0; t < tp.size(); ++t)
				ASSERT_EQ(tp[t], static_cast<double>(t)) << "torn or wrong time point";
			// the newest record loads; an ASCII last line taken while the writer paused within
			// its last value is read again later, so the one before it is checked
			const std::size_t checked = binary || tp.empty() ? tp.size() : tp.size() - 1;
			if (checked > 0) {
				const double * v = dio.data(static_cast<unsigned int>(checked - 1));
				for (unsigned int i = 0; i < n; ++i)
					ASSERT_EQ(v[i], expectedValue(checked - 1, i));
				++checkedValues;
			}
		}
		writer.join();
		EXPECT_EQ(dio.refresh(), DataIO::RR_UNCHANGED);
		ASSERT_EQ(dio.timePoints().size(), records);
		const double * all = dio.dataVector();
		for (std::size_t t = 0; t < records; ++t)
			for (unsigned int i = 0; i < n; ++i)
				ASSERT_EQ(all[t*n + i], expectedValue(t, i));
		EXPECT_GT(checkedValues, 0u);
	}
}
