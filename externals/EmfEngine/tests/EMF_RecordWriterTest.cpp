#include <gtest/gtest.h>

#include <EMF_RecordWriter.h>

#include "EMF_TestParser.h"

TEST(EMFRecordWriter, RecordsArePaddedAndCountedBetweenHeaderAndEof) {
	EMF::RecordWriter w;
	w.beginRecord(70);	// EMR_COMMENT with 5 data bytes
	w.writeU32(5);
	w.writeBytes("abcde", 5);
	w.endRecord();
	w.writeRecord(33);	// SAVEDC
	w.beginRecord(34);
	w.writeI32(-1);
	w.endRecord();
	EXPECT_EQ(w.recordCount(), 3u);
	EMF::HeaderInfo info;
	info.frame = EMF::RectL(0, 0, 999, 499);
	info.deviceCx = 567;
	info.deviceCy = 283;
	info.millimetersCx = 10;
	info.millimetersCy = 5;
	info.micrometersCx = 10000;
	info.micrometersCy = 5000;
	info.description = QString("App") + QChar(0) + "Pic" + QChar(0) + QChar(0);
	QByteArray data = w.finish(info);

	EmfTest::File f;
	ASSERT_TRUE(f.parse(data)) << f.errorText();
	ASSERT_EQ(f.records.size(), 5u);
	EXPECT_EQ(f.records[0].type, EmfTest::T_HEADER);
	EXPECT_EQ(f.records[4].type, EmfTest::T_EOF);
	EXPECT_EQ(f.records[1].size, 20u);	// 8 + 4 + 5 -> padded to 20
	EXPECT_EQ(f.records[1].u8(16), 'e');
	EXPECT_EQ(f.records[1].u8(17), 0);
	EXPECT_EQ(f.records[3].i32(8), -1);

	EXPECT_EQ(f.header.bytes, uint32_t(data.size()));
	EXPECT_EQ(f.header.records, 5u);
	EXPECT_EQ(f.header.handles, 1u);	// only the reserved index 0
	EXPECT_EQ(f.header.bounds.r, -1);	// nothing drawn
	EXPECT_EQ(f.header.frame.r, 999);
	EXPECT_EQ(f.header.frame.b, 499);
	EXPECT_EQ(std::vector<int64_t>({f.header.deviceCx, f.header.deviceCy, f.header.mmCx, f.header.mmCy, f.header.umCx, f.header.umCy}),
			  std::vector<int64_t>({567, 283, 10, 5, 10000, 5000}));
	EXPECT_EQ(f.header.nDescription, 9u);
	EXPECT_EQ(f.header.offDescription, 108u);
	EXPECT_EQ(f.header.description, info.description);
	EXPECT_EQ(f.records[0].size, 108u + 20u);	// 9 UTF-16 chars = 18 bytes, padded to 20
}
