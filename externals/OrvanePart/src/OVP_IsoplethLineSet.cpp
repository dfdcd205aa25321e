#include "OVP_IsoplethLineSet.h"

#include <cmath>
#include <cstdio>
#include <limits>

#include <QFileInfo>

#include <tinyxml.h>

#include <EM_ModelTwo2DIsopleth.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_StringUtils.h>

#include "OVP_TableFile.h"

namespace OVP {

namespace {

/*! Temperature at or below which no line is reached: no germination at or below 0 C. */
const double LOWEST_TEMPERATURE = 0;

/*! The cells of a table line, trimmed. */
std::vector<std::string> cells(const std::string & line, char separator) {
	std::vector<std::string> parts = ZEB::explode(line, separator);
	for (std::string & p : parts)
		p = ZEB::trimmed(p, " \t\r\n\"");
	return parts;
}

/*! The number of a cell; a decimal comma is read as a point unless commas separate the cells. */
bool cellNumber(std::string text, char separator, double & value) {
	if (separator != ',')
		for (char & c : text)
			if (c == ',')
				c = '.';
	return ZEB::parseDouble(text.data(), text.data() + text.size(), value) && std::isfinite(value);
}

/*! Throws when a line lies above the line before it at any table temperature of either. */
void checkOrder(const std::vector<EM::ClimateLimitCurve> & lines, const char * functionId) {
	for (std::size_t i = 1; i < lines.size(); ++i) {
		const EM::ClimateLimitCurve & shorter = lines[i - 1];
		const EM::ClimateLimitCurve & longer = lines[i];
		std::vector<double> temperatures = shorter.temperatures();
		temperatures.insert(temperatures.end(), longer.temperatures().begin(), longer.temperatures().end());
		for (double T : temperatures) {
			if (longer.humidity(T) > shorter.humidity(T) + 1e-9)
				throw ZEB::Exception(ZEB::MessageFormat("Line '%1' lies above line '%2' at %3 C: a longer germination "
					"time cannot need a higher humidity, and the limit for germination comes last.")
					.arg(longer.name()).arg(shorter.name()).arg(T), functionId);
		}
	}
}

/*! Shortest text that reads back as the same double. */
std::string exactText(double value) {
	char buf[40];
	std::snprintf(buf, sizeof(buf), "%.17g", value);
	return buf;
}

} // namespace


IsoplethLineSet IsoplethLineSet::readFile(const QString & fileName) {
	FUNCID(IsoplethLineSet::readFile);
	try {
		TableFile file(fileName.toStdString());
		std::string text;
		std::vector<std::string> names;
		char separator = ',';
		std::vector<std::vector<double> > T, RH;
		std::vector<double> rowTemperatures;
		while (file.nextLine(text)) {
			const std::string line = ZEB::trimmed(text);
			if (line.empty() || line[0] == '#')
				continue;
			const unsigned long long number = file.lineNumber();
			if (names.empty()) {
				separator = line.find('\t') != std::string::npos ? '\t' : line.find(';') != std::string::npos ? ';' : ',';
				std::vector<std::string> header = cells(line, separator);
				names.assign(header.begin() + 1, header.end());
				if (names.empty())
					throw ZEB::Exception(ZEB::MessageFormat("Line %1: the header needs the temperature column and "
						"one column per isopleth line.").arg(number), FUNC_ID);
				if (names.size() > MAX_LINES)
					throw ZEB::Exception(ZEB::MessageFormat("Line %1: more than %2 isopleth lines.").arg(number)
										 .arg(MAX_LINES), FUNC_ID);
				for (std::size_t i = 0; i < names.size(); ++i)
					if (names[i].empty())
						throw ZEB::Exception(ZEB::MessageFormat("Line %1: column %2 of the header has no line name.")
											 .arg(number).arg(i + 2), FUNC_ID);
				T.resize(names.size());
				RH.resize(names.size());
				continue;
			}
			const std::vector<std::string> row = cells(line, separator);
			if (row.size() > names.size() + 1)
				throw ZEB::Exception(ZEB::MessageFormat("Line %1: %2 values, but the header names %3 columns.")
									 .arg(number).arg(row.size()).arg(names.size() + 1), FUNC_ID);
			if (rowTemperatures.size() == MAX_ROWS)
				throw ZEB::Exception(ZEB::MessageFormat("Line %1: more than %2 rows.").arg(number).arg(MAX_ROWS), FUNC_ID);
			double t = 0;
			if (!cellNumber(row[0], separator, t))
				throw ZEB::Exception(ZEB::MessageFormat("Line %1: '%2' is no temperature.").arg(number).arg(row[0]), FUNC_ID);
			if (!rowTemperatures.empty() && t <= rowTemperatures.back())
				throw ZEB::Exception(ZEB::MessageFormat("Line %1: the temperature %2 C does not lie above the one of "
					"the row before.").arg(number).arg(t), FUNC_ID);
			rowTemperatures.push_back(t);
			for (std::size_t i = 1; i < row.size(); ++i) {
				if (row[i].empty())
					continue;
				double rh = 0;
				if (!cellNumber(row[i], separator, rh))
					throw ZEB::Exception(ZEB::MessageFormat("Line %1: '%2' is no relative humidity.")
										 .arg(number).arg(row[i]), FUNC_ID);
				if (rh < 0 || rh > 100)
					throw ZEB::Exception(ZEB::MessageFormat("Line %1: the relative humidity %2 % of '%3' lies outside "
						"0 to 100 %.").arg(number).arg(rh).arg(names[i - 1]), FUNC_ID);
				T[i - 1].push_back(t);
				RH[i - 1].push_back(rh);
			}
		}
		if (names.empty())
			throw ZEB::Exception("The file holds no table of isopleth lines.", FUNC_ID);
		IsoplethLineSet set;
		set.m_name = QFileInfo(fileName).completeBaseName().toStdString();
		if (set.m_name.empty())
			set.m_name = QFileInfo(fileName).fileName().toStdString();
		for (std::size_t i = 0; i < names.size(); ++i) {
			if (T[i].empty())
				throw ZEB::Exception(ZEB::MessageFormat("The line '%1' has no values.").arg(names[i]), FUNC_ID);
			set.m_lines.emplace_back(names[i], T[i], RH[i], LOWEST_TEMPERATURE);
		}
		checkOrder(set.m_lines, FUNC_ID);
		return set;
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Cannot read isopleth lines from '%1'.").arg(fileName.toStdString()),
							 FUNC_ID);
	}
}


IsoplethLineSet IsoplethLineSet::of(const EM::ModelTwo2DIsopleth & model) {
	IsoplethLineSet set;
	if (!model.linesName().empty()) {
		set.m_name = model.linesName();
		set.m_lines = model.lines();
	}
	return set;
}


void IsoplethLineSet::writeXML(TiXmlElement * parent, unsigned int extractorIndex) const {
	TiXmlElement * set = new TiXmlElement("IsoplethLines");
	parent->LinkEndChild(set);
	set->SetAttribute("extractor", static_cast<int>(extractorIndex));
	set->SetAttribute("name", m_name);
	for (const EM::ClimateLimitCurve & line : m_lines) {
		std::string points;
		for (std::size_t i = 0; i < line.temperatures().size(); ++i)
			points += (i == 0 ? "" : ";") + exactText(line.temperatures()[i]) + " " + exactText(line.humidities()[i]);
		TiXmlElement * e = new TiXmlElement("Line");
		set->LinkEndChild(e);
		e->SetAttribute("name", line.name());
		e->LinkEndChild(new TiXmlText(points));
	}
}


IsoplethLineSet IsoplethLineSet::readXML(const TiXmlElement * element) {
	FUNCID(IsoplethLineSet::readXML);
	IsoplethLineSet set;
	const char * name = element->Attribute("name");
	if (name == nullptr || *name == '\0')
		throw ZEB::Exception("Expected 'name' attribute in IsoplethLines.", FUNC_ID);
	set.m_name = name;
	for (const TiXmlElement * e = element->FirstChildElement("Line"); e != nullptr; e = e->NextSiblingElement("Line")) {
		if (set.m_lines.size() == MAX_LINES)
			throw ZEB::Exception(ZEB::MessageFormat("More than %1 isopleth lines.").arg(MAX_LINES), FUNC_ID);
		const char * lineName = e->Attribute("name");
		std::vector<double> T, RH;
		for (const std::string & point : ZEB::explode(e->GetText() == nullptr ? "" : e->GetText(), ';')) {
			std::vector<std::string> values = ZEB::explode(ZEB::trimmed(point), ' ');
			double t = 0;
			double rh = 0;
			if (values.size() != 2 || !cellNumber(values[0], ',', t) || !cellNumber(values[1], ',', rh))
				throw ZEB::Exception(ZEB::MessageFormat("Invalid point '%1' of isopleth line '%2'.")
									 .arg(point).arg(lineName == nullptr ? "" : lineName), FUNC_ID);
			T.push_back(t);
			RH.push_back(rh);
		}
		try {
			set.m_lines.emplace_back(lineName == nullptr ? "" : lineName, T, RH, LOWEST_TEMPERATURE);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, ZEB::MessageFormat("Invalid isopleth line '%1'.").arg(lineName == nullptr ? "" : lineName),
								 FUNC_ID);
		}
	}
	if (set.m_lines.empty())
		throw ZEB::Exception("IsoplethLines without Line elements.", FUNC_ID);
	return set;
}

} // namespace OVP
