#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include <DATAIO_DataIO.h>
#include <DATAIO_DataIOWriter.h>
#include <ZEB_NotificationHandler.h>

#include "DATAIO_TestUtils.h"

using DATAIO::DataIO;

TEST(DataIOBinaryTimePoints, FileCutWhileItsTimePointsAreReadListsTheRecordsLeftWhole) {
	/*! Cuts the file to m_length when reading starts. */
	struct Cutter : public ZEB::NotificationHandler {
		void notify(double) override { std::filesystem::resize_file(m_file, m_length); }
		std::string		m_file;
		std::uintmax_t	m_length = 0;
	};
	// records of 16 bytes (the cut lies within the last page, whose rest reads as zeros) and of
	// 4808 bytes (the pages after the cut are lost)
	for (unsigned int elements : { 1u, 600u }) {
		DataIO written = DATAIO_Test::sampleContainer(true, false, DataIO::T_FIELD, DataIO::ST_SINGLE, elements, 40);
		Cutter cutter;
		cutter.m_file = DATAIO_Test::scratchFile("cut_while_read.out");
		DATAIO::DataIOWriter::write(cutter.m_file, written);
		// 10 whole records and half of the 11th
		const std::uintmax_t recordSize = (elements + 1)*8;
		cutter.m_length = std::filesystem::file_size(cutter.m_file) - 30*recordSize + recordSize/2;
		DataIO back;
		back.read(cutter.m_file, &cutter);
		EXPECT_EQ(back.timePoints(), std::vector<double>(written.timePoints().begin(), written.timePoints().begin() + 10))
				<< elements;
	}
}
