#include <gtest/gtest.h>

#include <QApplication>

namespace {

/*! Creates the QApplication that fonts and Qwt widgets need, headless (the test environment chooses the platform). */
class QtEnvironment : public ::testing::Environment {
public:
	void SetUp() override {
		if (QCoreApplication::instance() == nullptr)
			m_app = new QApplication(m_argc, m_argv);
	}
	void TearDown() override {
		delete m_app;
		m_app = nullptr;
	}

private:
	int				m_argc = 1;
	char			m_name[16] = "EmfEngineTests";
	char *			m_argv[2] = { m_name, nullptr };
	QApplication *	m_app = nullptr;
};

::testing::Environment * const qtEnvironment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

} // namespace
