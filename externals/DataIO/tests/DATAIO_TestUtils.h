#ifndef DATAIO_TestUtilsH
#define DATAIO_TestUtilsH

#include <cstdint>
#include <string>
#include <vector>

#include <ZEB_Exception.h>
#include <ZEB_MessageHandler.h>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

namespace DATAIO_Test {

/*! Path of a file in the test's scratch directory. */
std::string scratchFile(const std::string & name);
/*! Writes bytes to a file, replacing it. */
void writeBytes(const std::string & path, const std::string & bytes);
/*! Appends bytes to a file. */
void appendBytes(const std::string & path, const std::string & bytes);
/*! The whole content of a file. */
std::string readBytes(const std::string & path);

/*! True when one record of the exception chain has exactly this text. */
bool hasMessage(const ZEB::Exception & ex, const std::string & msg);
/*! True when one record has exactly this text and function id. */
bool hasRecord(const ZEB::Exception & ex, const std::string & msg, const std::string & where);

/*! A geometry of nx x ny x nz elements with two materials; sides between neighbours in x and
	on the two x boundaries. Element centres come from the widths, so positions differ exactly
	in the directions that have more than one element.
*/
DATAIO::GeoFile sampleGeometry(unsigned int nx, unsigned int ny, unsigned int nz);

/*! Doubles that are hard to write as text: signed zeros, subnormals, extremes, fractions
	without exact decimal form, and random bit patterns of finite values.
*/
std::vector<double> awkwardDoubles(std::size_t count, std::uint64_t seed);

/*! Records the texts of the messages of one type instead of writing them; current while it lives. */
struct MessageRecorder : public ZEB::MessageHandler {
	explicit MessageRecorder(ZEB::MsgType type) : m_type(type) { ZEB::MessageHandler::setCurrent(this); }
	~MessageRecorder() override { ZEB::MessageHandler::setCurrent(nullptr); }
	void message(const std::string & msg, ZEB::MsgType type, const char *, int) override {
		if (type == m_type)
			m_texts.push_back(msg);
	}
	ZEB::MsgType				m_type;
	std::vector<std::string>	m_texts;
};

/*! A container filled in memory: header fields set, increasing time points, awkward values. */
DATAIO::DataIO sampleContainer(bool binary, bool preV6, DATAIO::DataIO::OutputType type,
							   DATAIO::DataIO::SpaceType spaceType, unsigned int elementCount,
							   std::size_t timePointCount);

} // namespace DATAIO_Test

/*! Expects the statement to throw a ZEB::Exception with a record of exactly this text. */
#define EXPECT_THROW_MSG(statement, msg) \
	do { \
		try { \
			statement; \
			ADD_FAILURE() << "no exception, expected: " << (msg); \
		} \
		catch (ZEB::Exception & ex_) { \
			EXPECT_TRUE(DATAIO_Test::hasMessage(ex_, msg)) << "expected '" << (msg) << "' in:\n" << ex_.msgWithOrigin(); \
		} \
	} while (false)

#endif // DATAIO_TestUtilsH
