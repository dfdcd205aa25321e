// Linked into every test program: gives it a headless Qt platform, the source tree and its own
// scratch directory for files it writes, also when the program is started by hand instead of
// through ctest. Values already set in the environment win.
#include <cstdlib>

namespace {

struct TestEnvironment {
	TestEnvironment() {
		setenv("QT_QPA_PLATFORM", "offscreen", 0);
		setenv("ORVANE_SOURCE_DIR", ORVANE_SOURCE_DIR_PATH, 0);
		setenv("ORVANE_TEST_SCRATCH", ORVANE_TEST_SCRATCH_PATH, 0);
	}
};

const TestEnvironment g_testEnvironment;

} // namespace
