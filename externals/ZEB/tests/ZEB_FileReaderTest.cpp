#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <ZEB_Exception.h>
#include <ZEB_FileReader.h>
#include <ZEB_NotificationHandler.h>

namespace {

std::string writeScratch(const std::string & name, const std::string & content) {
	const char * dir = std::getenv("ORVANE_TEST_SCRATCH");
	std::string path = (dir != nullptr ? std::string(dir) : std::filesystem::temp_directory_path().string()) + "/" + name;
	std::ofstream out(path, std::ios::binary);
	out << content;
	return path;
}

std::vector<std::string> readAll(const std::string & path, std::uint64_t offset, bool completeOnly, std::uint64_t & end) {
	std::vector<std::string> lines;
	end = ZEB::FileReader::readLines(path, offset,
		[&lines](const char * b, const char * e) { lines.emplace_back(b, e); }, nullptr, completeOnly);
	return lines;
}

/*! Records the progress fractions it receives. */
struct ProgressRecorder : public ZEB::NotificationHandler {
	void notify(double f) override { m_fractions.push_back(f); }
	std::vector<double> m_fractions;
};

} // namespace

TEST(ZEBFileReader, LinesWithoutLineEndsFromOffset) {
	const std::string content = "head\r\n1 2\n\n3 4\r\nlast";
	const std::string path = writeScratch("lines.txt", content);
	std::uint64_t end = 0;
	std::vector<std::string> lines = readAll(path, 0, false, end);
	EXPECT_EQ(lines, (std::vector<std::string>{"head", "1 2", "", "3 4", "last"}));
	EXPECT_EQ(end, content.size());

	// a last line without line end may still be written: left for the next call
	lines = readAll(path, 6, true, end);
	EXPECT_EQ(lines, (std::vector<std::string>{"1 2", "", "3 4"}));
	EXPECT_EQ(end, content.size() - 4);
	lines = readAll(path, end, false, end);
	EXPECT_EQ(lines, (std::vector<std::string>{"last"}));

	EXPECT_THROW(readAll(path, content.size() + 1, false, end), ZEB::Exception);
	EXPECT_THROW(readAll(path + ".missing", 0, false, end), ZEB::Exception);

	// an exception from the line handler ends reading
	int calls = 0;
	EXPECT_THROW(ZEB::FileReader::readLines(path, 0, [&calls](const char *, const char *) {
		if (++calls == 2)
			throw ZEB::Exception("bad line", "[Test]");
	}), ZEB::Exception);
	EXPECT_EQ(calls, 2);
}

TEST(ZEBFileReader, LinesLongerThanTheBufferAndManyBlocks) {
	// one line of 9 MB (longer than the block buffer), then many short lines across blocks
	std::string longLine(9u << 20, 'x');
	std::string content = longLine + "\n";
	for (int i = 0; i < 400000; ++i)
		content += std::to_string(i) + "\n";
	const std::string path = writeScratch("long.txt", content);
	std::size_t count = 0;
	bool allShortLinesInOrder = true;
	std::size_t longLength = 0;
	ProgressRecorder progress;
	std::uint64_t end = ZEB::FileReader::readLines(path, 0, [&](const char * b, const char * e) {
		if (count == 0)
			longLength = static_cast<std::size_t>(e - b);
		else if (std::string(b, e) != std::to_string(count - 1))
			allShortLinesInOrder = false;
		++count;
	}, &progress);
	EXPECT_EQ(longLength, longLine.size());
	EXPECT_EQ(count, 400001u);
	EXPECT_TRUE(allShortLinesInOrder);
	EXPECT_EQ(end, content.size());
	ASSERT_FALSE(progress.m_fractions.empty());
	EXPECT_EQ(progress.m_fractions.back(), 1.0);
	for (std::size_t i = 1; i < progress.m_fractions.size(); ++i)
		EXPECT_LE(progress.m_fractions[i-1], progress.m_fractions[i]);
}
