#include <gtest/gtest.h>

#include <QApplication>

namespace {

/*! Creates the application object that fonts, colours and widgets need, once for all tests. */
class QtApplicationEnvironment : public ::testing::Environment {
public:
	void SetUp() override {
		static int argc = 1;
		static char name[] = "SciChartTests";
		static char * argv[] = { name, nullptr };
		m_app = new QApplication(argc, argv);
	}
	void TearDown() override {
		delete m_app;
		m_app = nullptr;
	}
private:
	QApplication * m_app = nullptr;
};

::testing::Environment * const g_qtEnvironment =
		::testing::AddGlobalTestEnvironment(new QtApplicationEnvironment);

} // namespace
