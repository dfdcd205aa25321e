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


TEST(DataIORefresh, AppendsOnlyCompleteNewRecords) {
	for (bool binary : { false, true }) {
		SCOPED_TRACE(binary ? "binary" : "ASCII");
		const unsigned int n = 3;
		const std::string fname = scratchFile("growing.out");
		std::string content = headerBytes(binary, n);
		for (std::size_t t = 0; t < 3; ++t)
			content += recordBytes(binary, t, n);
		writeBytes(fname, content);
		DataIO dio;
		dio.read(fname);
		ASSERT_EQ(dio.timePoints().size(), 3u);
		EXPECT_EQ(dio.refresh(), DataIO::RR_UNCHANGED);
		EXPECT_EQ(dio.data(2)[1], expectedValue(2, 1));

		// a record written halfway: ASCII takes it only with its line end; binary lists it as soon
		// as its time point is there, and its values once they are complete
		const std::string r3 = recordBytes(binary, 3, n);
		appendBytes(fname, r3.substr(0, 4));
		EXPECT_EQ(dio.refresh(), DataIO::RR_UNCHANGED);
		appendBytes(fname, r3.substr(4, 8));
		if (binary) {
			EXPECT_EQ(dio.refresh(), DataIO::RR_APPENDED);
			ASSERT_EQ(dio.timePoints().size(), 4u);
			EXPECT_EQ(dio.timePoints()[3], 3.0);
			EXPECT_THROW_MSG(dio.data(3), "Error reading data for this time index.");
		}
		else {
			EXPECT_EQ(dio.refresh(), DataIO::RR_UNCHANGED);
			EXPECT_EQ(dio.timePoints().size(), 3u);
		}
		appendBytes(fname, r3.substr(12) + recordBytes(binary, 4, n));
		EXPECT_EQ(dio.refresh(), DataIO::RR_APPENDED);
		ASSERT_EQ(dio.timePoints().size(), 5u);
		for (std::size_t t = 0; t < 5; ++t) {
			EXPECT_EQ(dio.timePoints()[t], static_cast<double>(t));
			EXPECT_EQ(dio.data(static_cast<unsigned int>(t))[2], expectedValue(t, 2));
		}
		EXPECT_EQ(dio.fileSize(), readBytes(fname).size());
	}
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
	// point seen must be the right one, and every value that can be loaded must be right
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
			if (!tp.empty()) {
				const std::size_t t = tp.size() - 1;
				try {
					const double * v = dio.data(static_cast<unsigned int>(t));
					for (unsigned int i = 0; i < n; ++i)
						ASSERT_EQ(v[i], expectedValue(t, i));
					++checkedValues;
				}
				catch (ZEB::Exception & ex) {
					// only a binary record still being written may fail, and only cleanly
					ASSERT_TRUE(binary) << ex.msgWithOrigin();
					ASSERT_TRUE(hasMessage(ex, "Error reading data for this time index."));
				}
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
