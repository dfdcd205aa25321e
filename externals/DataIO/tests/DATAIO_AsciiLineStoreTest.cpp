#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include <DATAIO_AsciiLineStore.h>

namespace {

/*! The text of a held line as a string. */
std::string lineText(const DATAIO::AsciiLineStore & store, std::size_t i) {
	const char * b;
	const char * e;
	store.line(i, b, e);
	return std::string(b, e);
}

} // namespace


TEST(AsciiLineStore, BehavesLikeAListOfStringsUnderRandomOperations) {
	// model: the lines and whether they were released; operations in random order, including
	// giving back block space, removing the last line, truncating unreleased tails and lines
	// longer than a block
	std::mt19937 gen(2024);
	DATAIO::AsciiLineStore store;
	std::vector<std::string> model;
	std::vector<bool> released;
	for (int op = 0; op < 20000; ++op) {
		const unsigned int kind = gen() % 100;
		if (kind < 60) {
			std::string line(gen() % 40, 'x');
			for (char & c : line)
				c = static_cast<char>('a' + gen() % 26);
			store.append(line.data(), line.data() + line.size());
			model.push_back(line);
			released.push_back(false);
		}
		else if (kind < 85 && !model.empty()) {
			const std::size_t i = gen() % model.size();
			if (!released[i]) {
				ASSERT_EQ(lineText(store, i), model[i]) << "line " << i << " at operation " << op;
				store.release(i);
				released[i] = true;
			}
		}
		else if (kind < 93) {
			store.shrinkLastBlock();
		}
		else if (kind < 96 && !model.empty()) {
			store.removeLast(released.back());
			model.pop_back();
			released.pop_back();
		}
		else if (!model.empty()) {
			// truncate back to the last released line: only unreleased lines may be removed
			std::size_t keep = model.size() - gen() % std::min<std::size_t>(model.size(), 5);
			for (std::size_t i = keep; i < model.size(); ++i)
				if (released[i])
					keep = i + 1;
			store.truncate(keep);
			model.resize(keep);
			released.resize(keep);
		}
		ASSERT_EQ(store.size(), model.size());
	}
	for (std::size_t i = 0; i < model.size(); ++i) {
		if (!released[i]) {
			ASSERT_EQ(lineText(store, i), model[i]) << "line " << i;
		}
	}

	// a line longer than a block gets a block of its own; the neighbours stay intact
	const std::string huge((std::size_t(64) << 20) + 3, 'h');
	const std::string before = "before", after = "after";
	store.append(before.data(), before.data() + before.size());
	store.append(huge.data(), huge.data() + huge.size());
	store.append(after.data(), after.data() + after.size());
	const std::size_t n = store.size();
	EXPECT_EQ(lineText(store, n - 3), "before");
	EXPECT_EQ(lineText(store, n - 2).size(), huge.size());
	EXPECT_EQ(lineText(store, n - 1), "after");
	store.release(n - 2);
	EXPECT_EQ(lineText(store, n - 1), "after");
}
