#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>

#include <tinyxml.h>

#include <ZEB_MessageFormat.h>

#include <Sci_ChartStyleFile.h>
#include <Sci_ColorMapFile.h>
#include <Sci_LineSeriesDummyModel.h>
#include <Sci_XMLFile.h>
#include <Sci_XMLFileMarkupScan.h>

#include "Sci_TestSupport.h"

namespace {

/*! n copies of text. */
std::string repeated(const std::string & text, int n) {
	std::string s;
	for (int i = 0; i < n; ++i)
		s += text;
	return s;
}

/*! An element with n attributes a00, a01, ... */
std::string withAttributes(int n) {
	std::string s = "<a";
	for (int i = 0; i < n; ++i)
		s += (i < 10 ? " a0" : " a") + std::to_string(i) + "=''";
	return s + "/>";
}

/*! Deepest nesting of elements below node (1 for an element without child elements). */
int treeDepth(const TiXmlNode * node) {
	int depth = 0;
	for (const TiXmlElement * e = node->FirstChildElement(); e != nullptr; e = e->NextSiblingElement())
		depth = std::max(depth, 1 + treeDepth(e));
	return depth;
}

/*! Most attributes of one element below node. */
int treeAttributes(const TiXmlNode * node) {
	int most = 0;
	for (const TiXmlElement * e = node->FirstChildElement(); e != nullptr; e = e->NextSiblingElement()) {
		int n = 0;
		for (const TiXmlAttribute * a = e->FirstAttribute(); a != nullptr; a = a->Next())
			++n;
		most = std::max({most, n, treeAttributes(e)});
	}
	return most;
}

} // namespace


TEST(SciXMLFile, HostileFilesAreRefusedBeforeParsing) {
	struct Case {
		std::string	m_content;
		const char *	m_message;	///< %1 is the file name
	};
	const Case cases[] = {
		// the parser reads past the end of its buffer on these (the second one found by DataIOFuzzColorMap)
		{ std::string("<a>\xD1<\xD1", 6),
		  "File '%1' is not UTF-8 text: invalid or incomplete byte sequence at byte offset 3 (line 1)." },
		{ "<O \xEF=\"\xEF", "File '%1' is not UTF-8 text: invalid or incomplete byte sequence at byte offset 3 (line 1)." },
		{ "<a>\n\n\xE2\x82", "File '%1' is not UTF-8 text: invalid or incomplete byte sequence at byte offset 5 (line 3)." },
		{ "<a>\xED\xA0\x80</a>", "File '%1' is not UTF-8 text: invalid or incomplete byte sequence at byte offset 3 (line 1)." },
		{ std::string("<a>\n</a>\0<b/>", 13), "File '%1' contains a NUL byte at byte offset 8 (line 2)." },
		{ repeated("<a>", 257), "Elements in file '%1' are nested more than 256 levels deep at byte offset 768 (line 1)." },
		// the parser lets a character reference run to the next ';' and so never sees these end tags
		{ repeated("<a>&#x</a>x1;", 257),
		  "Elements in file '%1' are nested more than 256 levels deep at byte offset 3328 (line 1)." },
		{ withAttributes(65), "An element in file '%1' has more than 64 attributes at byte offset 451 (line 1)." },
	};
	const QString path = SciTest::scratchPath("hostile.xml");
	auto withPath = [&path](const char * message) { return ZEB::MessageFormat(message).arg(path.toStdString()).str(); };
	SCI::LineSeriesDummyModel model;
	struct Reader {
		std::function<void()>	m_read;
		const char *			m_functionId;
		const char *			m_parseError;	///< start of its message for a parse error in line 3
	};
	const Reader readers[] = {
		{ [&path]() { SCI::ColorMapFile::load(path); }, "[ColorMapFile::load]", "Error in line 3 of file '%1':\n" },
		{ [&path, &model]() { SCI::ChartStyleFile::apply(model, path); }, "[ChartStyleFile::apply]",
		  "Error in line 3 of project file '%1':\n" },
	};
	// expects a record of the error chain with this origin and this message (or a longer one)
	auto expectRefusal = [&path](const Reader & reader, const std::string & content, const std::string & message,
								 const std::string & functionId) {
		SciTest::writeTextFile(path, content);
		try {
			reader.m_read();
			ADD_FAILURE() << "accepted: " << message;
		}
		catch (ZEB::Exception & ex) {
			bool found = false;
			for (const auto & record : ex.messages())
				found = found || (record.m_where == functionId && record.m_what.compare(0, message.size(), message) == 0);
			EXPECT_TRUE(found) << ex.msgWithOrigin();
		}
	};
	for (const Reader & reader : readers) {
		for (const Case & c : cases)
			expectRefusal(reader, c.m_content, withPath(c.m_message), "[XMLFileCheck::check]");
		expectRefusal(reader, "<a>" + std::string(SCI::XMLFile::MAX_FILE_SIZE, ' ') + "</a>",
					  withPath("File '%1' is larger than 16777216 bytes, too large for an XML file of this program."),
					  reader.m_functionId);
		expectRefusal(reader, "<?xml version=\"1.0\"?>\n<a>\n</b>\n", withPath(reader.m_parseError), reader.m_functionId);
	}

	// the limits themselves are accepted
	for (const std::string & content : { repeated("<a>", 256) + repeated("</a>", 256), withAttributes(64) }) {
		SciTest::writeTextFile(path, content);
		TiXmlDocument doc;
		EXPECT_NO_THROW(SCI::XMLFile::load(doc, path, "%1 %2 %3", "[test]")) << content.substr(0, 40);
	}
}


TEST(SciXMLFile, MarkupScanCountsLikeTheParser) {
	// the depth and the attributes of the parsed document are the independent expectation
	const char * texts[] = {
		"<a><b/><c><d x='1' y=\"2\"/></c></a>",
		"<a>&#x</a>x1;<b/></a>",
		"<a>&amp;&#x;&lt;<b/></a>",
		"<a><!-- <b><c> --><d/></a>",
		"<a><![CDATA[<b><c>]]><d/></a>",
		"<a x='>' y=\"</a>\"><b/></a>",
		"<?xml version='1.0' encoding=\"<b>\"?><a><b/></a>",
		"<!DOCTYPE a [<!ENTITY b 'c'>]><a/>",
		"\xEF\xBB\xBF<a>\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80<b\xEF\xBB\xBF/></a>",
		"<a><b><c></a>",
		"<a><?php <b><c> ?><d/></a>",
	};
	for (const char * text : texts) {
		TiXmlDocument doc;
		doc.Parse(text, nullptr, TIXML_ENCODING_UTF8);
		const SCI::XMLFileMarkupScan scan(text, std::strlen(text), 100, 100);
		EXPECT_EQ(scan.depth(), treeDepth(&doc)) << text;
		EXPECT_EQ(scan.attributes(), treeAttributes(&doc)) << text;
	}
}
