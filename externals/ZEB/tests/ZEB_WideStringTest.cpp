#include <gtest/gtest.h>

#include <ZEB_Exception.h>
#include <ZEB_WideString.h>

#include "ZEB_TestSupport.h"

namespace {

const char * const TO_WIDE_ID = "[ZEB::UTF8ToWstring]";
const char * const TO_WIDE_MSG = "Cannot create wide string from UTF8 string.";
const char * const TO_UTF8_ID = "[ZEB::WstringToUTF8]";
const char * const TO_UTF8_MSG = "Cannot create UTF8 string from wide string.";

/*! Number of UTF-8 bytes of a code point, from the ranges of the encoding. */
std::size_t utf8Length(char32_t cp) {
	return cp < 0x80 ? 1 : cp < 0x800 ? 2 : cp < 0x10000 ? 3 : 4;
}

/*! All Unicode scalar values: every code point except the surrogates. */
std::wstring allScalarValues() {
	std::wstring all;
	for (char32_t cp = 0; cp <= 0x10FFFF; ++cp)
		if (cp < 0xD800 || cp > 0xDFFF)
			all.push_back(static_cast<wchar_t>(cp));
	return all;
}

} // namespace


TEST(ZEBWideString, KnownEncodingsAndRangeBoundaries) {
	ASSERT_EQ(sizeof(wchar_t), 4u) << "these tests expect UTF-32 wide strings";
	const std::vector<std::pair<std::string, char32_t> > cases = {
		{std::string(1, '\0'),	0x00},
		{"\x7F",				0x7F},
		{"\xC2\x80",			0x80},
		{"\xDF\xBF",			0x7FF},
		{"\xE0\xA0\x80",		0x800},
		{"\xED\x9F\xBF",		0xD7FF},	// last before the surrogates
		{"\xEE\x80\x80",		0xE000},	// first after them
		{"\xEF\xBF\xBF",		0xFFFF},
		{"\xF0\x90\x80\x80",	0x10000},
		{"\xF4\x8F\xBF\xBF",	0x10FFFF},
	};
	for (const auto & c : cases) {
		const std::wstring wide = ZEB::UTF8ToWstring(c.first);
		ASSERT_EQ(wide.size(), 1u);
		EXPECT_EQ(static_cast<char32_t>(wide[0]), c.second);
		EXPECT_EQ(ZEB::WstringToUTF8(wide), c.first);
	}
	EXPECT_EQ(ZEB::UTF8ToWstring(""), L"");
}


TEST(ZEBWideString, RoundTripOverAllCodePoints) {
	const std::wstring all = allScalarValues();
	const std::string utf8 = ZEB::WstringToUTF8(all);
	std::size_t expectedBytes = 0;
	for (wchar_t c : all)
		expectedBytes += utf8Length(static_cast<char32_t>(c));
	EXPECT_EQ(utf8.size(), expectedBytes);
	EXPECT_EQ(ZEB::UTF8ToWstring(utf8), all);

	// the same through UTF-16, where everything above U+FFFF becomes a surrogate pair
	const std::u16string utf16 = ZEB::UTF8ToU16string(utf8);
	EXPECT_EQ(utf16.size(), all.size() + (0x10FFFF - 0xFFFF));
	EXPECT_EQ(ZEB::U16stringToUTF8(utf16), utf8);
	EXPECT_EQ(ZEB::UTF8ToU16string("\xF0\x9D\x84\x9E"), std::u16string({0xD834, 0xDD1E}));

}


TEST(ZEBWideString, RejectsIllFormedUTF8) {
	const std::vector<std::pair<std::string, std::size_t> > bad = {
		{"ab\xBF",					2},	// stray continuation byte
		{"\xC0\xAF",				0},	// overlong '/'
		{"\xF0\x8F\xBF\xBF",		0},	// overlong U+FFFF
		{"\xE0\x9F\xBF",			0},	// overlong U+07FF
		{"\xF5\x80\x80\x80",		0},	// no lead byte
		{"xy\xED\xA0\x80",			2},	// surrogate U+D800
		{"\xF4\x90\x80\x80",		0},	// U+110000
		{"a\xF0\x9D\x84",			1},	// truncated four-byte sequence
		{"\xC3\x41",				0},	// continuation byte missing
	};
	for (const auto & b : bad) {
		const std::vector<ZEB::Exception::MsgInfo> msgs = expectError([&] { ZEB::UTF8ToWstring(b.first); }, TO_WIDE_MSG, TO_WIDE_ID);
		ASSERT_EQ(msgs.size(), 2u);
		EXPECT_EQ(msgs[0].m_what, "Invalid or truncated UTF-8 sequence at byte position " + std::to_string(b.second) + ".");
		EXPECT_EQ(msgs[0].m_where, TO_WIDE_ID);
		expectError([&] { ZEB::UTF8ToU16string(b.first); }, "Cannot create UTF16 string from UTF8 string.", "[ZEB::UTF8ToU16string]");
	}

}


TEST(ZEBWideString, RejectsInvalidWideCharacters) {
	const std::vector<ZEB::Exception::MsgInfo> msgs =
		expectError([&] { ZEB::WstringToUTF8(std::wstring(L"ab") + static_cast<wchar_t>(0xDFFF)); }, TO_UTF8_MSG, TO_UTF8_ID);
	ASSERT_EQ(msgs.size(), 2u);
	EXPECT_EQ(msgs[0].m_what, "Invalid code unit 0xDFFF at position 2.");
	for (const wchar_t c : {static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000), static_cast<wchar_t>(-1)})
		EXPECT_THROW(ZEB::WstringToUTF8(std::wstring(1, c)), ZEB::Exception);


	// UTF-16: unpaired surrogates
	const char * const u16Msg = "Cannot create UTF8 string from UTF16 string.";
	for (const std::u16string & s : {std::u16string({0xD834}), std::u16string({0xDD1E, 0xD834}),
									 std::u16string({u'a', 0xD834, u'b'}), std::u16string({0xD834, 0xD834, 0xDD1E})})
		expectError([&] { ZEB::U16stringToUTF8(s); }, u16Msg, "[ZEB::U16stringToUTF8]");
}
