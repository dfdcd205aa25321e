#include "DATAIOFUZZ_XMLChecks.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

#include <QVariant>

#include <tinyxml.h>

#include <ZEB_Exception.h>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>
#include <Sci_XMLFileCheck.h>
#include <Sci_XMLFileMarkupScan.h>

#include "DATAIOFUZZ_Checks.h"

namespace DATAIOFUZZ {

namespace {

typedef SCI::AbstractCartesianChartModel CM;

/*! Deepest nesting of elements below node and the most attributes of one of them, without
	recursion (the document may be deeper than the check allows when the check is wrong).
*/
void measureTree(const TiXmlNode * root, int & depth, int & attributes) {
	depth = 0;
	attributes = 0;
	std::vector<std::pair<const TiXmlElement *, int> > stack;
	for (const TiXmlElement * e = root->FirstChildElement(); e != nullptr; e = e->NextSiblingElement())
		stack.emplace_back(e, 1);
	while (!stack.empty()) {
		const TiXmlElement * e = stack.back().first;
		const int level = stack.back().second;
		stack.pop_back();
		depth = std::max(depth, level);
		int n = 0;
		for (const TiXmlAttribute * a = e->FirstAttribute(); a != nullptr; a = a->Next())
			++n;
		attributes = std::max(attributes, n);
		for (const TiXmlElement * c = e->FirstChildElement(); c != nullptr; c = c->NextSiblingElement())
			stack.emplace_back(c, level + 1);
	}
}

/*! Holds a text so that its terminating NUL is the last byte before an inaccessible page: a
	parser that reads past the end of the text stops the process with SIGSEGV, which
	AddressSanitizer cannot report for TinyXML, as that library is not instrumented.
*/
class GuardedText {
public:
	GuardedText(const char * data, std::size_t size) {
		const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
		m_length = (size + 1 + page - 1)/page*page + page;
		void * mem = mmap(nullptr, m_length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
		if (mem == MAP_FAILED || mprotect(static_cast<char *>(mem) + m_length - page, page, PROT_NONE) != 0)
			Checks::fail("cannot map the guarded parser buffer");
		m_memory = static_cast<char *>(mem);
		m_text = m_memory + m_length - page - size - 1;
		std::memcpy(m_text, data, size);
		m_text[size] = '\0';
	}
	~GuardedText() { munmap(m_memory, m_length); }
	GuardedText(const GuardedText &) = delete;
	GuardedText & operator=(const GuardedText &) = delete;

	const char * text() const { return m_text; }

private:
	char *			m_memory;
	std::size_t		m_length;
	char *			m_text;
};

bool sameValue(const QVariant & a, const QVariant & b) {
	if (a.type() == QVariant::Double && b.type() == QVariant::Double
			&& std::isnan(a.toDouble()) && std::isnan(b.toDouble()))
		return true;
	return a == b;
}

void compare(const QVariant & a, const QVariant & b, const std::string & what) {
	if (!sameValue(a, b))
		Checks::fail(what + " differs after writing and reading back: '" + a.toString().toStdString()
					 + "' became '" + b.toString().toStdString() + "'");
}

} // namespace


void XMLChecks::checkMarkupScan(const char * data, std::size_t size) {
	try {
		SCI::XMLFileCheck::check(data, size, "input");
	}
	catch (ZEB::Exception &) {
		return;		// refused before parsing: the readers never hand it to TinyXML
	}
	const GuardedText text(data, size);
	TiXmlDocument doc;
	doc.Parse(text.text(), nullptr, TIXML_ENCODING_UTF8);
	int depth = 0;
	int attributes = 0;
	measureTree(&doc, depth, attributes);
	const SCI::XMLFileMarkupScan scan(data, size, SCI::XMLFileCheck::MAX_NESTING_DEPTH,
									  SCI::XMLFileCheck::MAX_ATTRIBUTES);
	const bool agree = doc.Error() ? depth <= scan.depth() && attributes <= scan.attributes()
								   : depth == scan.depth() && attributes == scan.attributes();
	if (!agree)
		Checks::fail("markup scan found depth " + std::to_string(scan.depth()) + " and " + std::to_string(scan.attributes())
					 + " attributes, the parser built depth " + std::to_string(depth) + " and " + std::to_string(attributes)
					 + (doc.Error() ? " before its error" : ""));
}


void XMLChecks::checkSameChart(const SCI::AbstractChartModel & a, const SCI::AbstractChartModel & b,
							   const std::string & what) {
	// chart roles other than the read-only title alias and the two that are not stored
	for (int r = 0; r < SCI::AbstractChartModel::NUM_CDR; ++r) {
		if (r != SCI::AbstractChartModel::Title && r != SCI::AbstractChartModel::DataReduction
				&& r != SCI::AbstractChartModel::CurrentTimePosition)
			compare(a.chartData(r), b.chartData(r), what + " chart role " + std::to_string(r));
	}
	const CM * ca = dynamic_cast<const CM *>(&a);
	const CM * cb = dynamic_cast<const CM *>(&b);
	if (ca == nullptr || cb == nullptr)
		return;
	for (int axis = 0; axis < CM::NUM_AXES; ++axis)
		for (int r = 0; r < CM::NUM_AXIS_ROLES; ++r)
			compare(ca->axisData(axis, r), cb->axisData(axis, r),
					what + " axis " + std::to_string(axis) + " role " + std::to_string(r));

	// the stored series properties of each kind; the colour grid's colour bar flag is written
	// under another name than the one it is read from, so it does not travel
	std::vector<int> roles;
	if (dynamic_cast<const SCI::AbstractLineSeriesModel *>(&a) != nullptr)
		roles = { 1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14 };
	else if (dynamic_cast<const SCI::AbstractColorGridSeriesModel *>(&a) != nullptr)
		roles = { 7, 8, 9, 10, 14, 15, 17, 18, 19 };
	else if (dynamic_cast<const SCI::AbstractVectorFieldSeriesModel *>(&a) != nullptr)
		roles = { 5, 6, 7, 8, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21 };
	const int series = std::max(1, static_cast<int>(a.seriesCount()));
	for (int s = 0; s < series; ++s)
		for (int r : roles)
			compare(a.seriesData(s, r), b.seriesData(s, r), what + " series " + std::to_string(s) + " role " + std::to_string(r));
}

} // namespace DATAIOFUZZ
