#include <memory>

#include <gtest/gtest.h>

#include <QApplication>

namespace {

/*! Creates the QApplication that fonts need, headless (the test environment chooses the platform). */
class QtEnvironment : public ::testing::Environment {
	void SetUp() override { m_app.reset(new QApplication(m_argc, m_argv)); }
	void TearDown() override { m_app.reset(); }

	int								m_argc = 1;
	char							m_name[16] = "EmfEngineTests";
	char *							m_argv[2] = { m_name, nullptr };
	std::unique_ptr<QApplication>	m_app;
};

::testing::Environment * const qtEnvironment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

} // namespace
