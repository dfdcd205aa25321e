// Linked into every test program: gives it a headless Qt platform, the source tree and a scratch
// directory of its own for the files it writes, also when the program is started by hand
// instead of through ctest. ctest runs every test case as a process of its own, several at a
// time, so each process works in a fresh sub-directory that is removed again at its end.
// Values already set in the environment win.
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

namespace {

struct TestEnvironment {
	TestEnvironment() {
		setenv("QT_QPA_PLATFORM", "offscreen", 0);
		setenv("ORVANE_SOURCE_DIR", ORVANE_SOURCE_DIR_PATH, 0);
		if (std::getenv("ORVANE_TEST_SCRATCH") == nullptr) {
			m_ownScratch = std::filesystem::path(ORVANE_TEST_SCRATCH_PATH) / ("run-" + std::to_string(::getpid()));
			std::error_code ec;
			std::filesystem::remove_all(m_ownScratch, ec);
			std::filesystem::create_directories(m_ownScratch, ec);
			setenv("ORVANE_TEST_SCRATCH", m_ownScratch.c_str(), 1);
			std::filesystem::current_path(m_ownScratch, ec);
		}
	}

	~TestEnvironment() {
		if (m_ownScratch.empty())
			return;
		std::error_code ec;
		std::filesystem::current_path(m_ownScratch.parent_path(), ec);
		std::filesystem::remove_all(m_ownScratch, ec);
	}

	std::filesystem::path	m_ownScratch;
};

const TestEnvironment g_testEnvironment;

} // namespace
