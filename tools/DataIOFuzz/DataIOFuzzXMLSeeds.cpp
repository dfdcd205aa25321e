// DataIOFuzzXMLSeeds: writes the seed corpus of the XML fuzz targets with the program's own
// writers, every chart written with the write-all flag so that every element of the formats is
// present:
//   <corpus>/session   the demo session built over SessionData, with sub-directory colours,
//                      check marks and expanded sub-directories, written with and without the
//                      write-all flag; plus the given demo session file as it is
//   <corpus>/chart     the chart model XML of each chart of that session
//   <corpus>/style     a style file of each chart
//   <corpus>/colormap  the colour maps of its colour grid and vector charts, an alpha map, and a
//                      map with colours that have alpha or 16-bit channels
//   DataIOFuzzXMLSeeds <corpus directory> [demo session file]

#include <iostream>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <tinyxml.h>

#include <ZEB_Exception.h>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>
#include <Sci_ChartStyleFile.h>
#include <Sci_ColorMapFile.h>
#include <Sci_XMLFile.h>

#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_ProjectHandler.h>

#include <DEMO_SessionBuilder.h>

#include "DATAIOFUZZ_GuiEnvironment.h"
#include "DATAIOFUZZ_SessionData.h"

namespace {

/*! Gives the first top-level directory sub-directory settings, so that SubDir and
	ExpandedSubDir elements are written.
*/
void addSubDirectories(OVP::Project & project) {
	OVP::Directory & d = project.m_directories.front();
	d.m_subDirectories["wall"] = OVP::Directory::SubDirectory{ QColor(0xc2, 0x3b, 0x22), true };
	d.m_subDirectories["corner/surface"] = OVP::Directory::SubDirectory{ QColor(0x1f, 0x5f, 0xa6), false };
	d.m_expandedSubDirectories.insert("wall");
	d.m_expandedSubDirectories.insert("corner");
}

/*! A chart model's XML with all properties, under a ChartModel root element. */
void writeChartXML(SCI::AbstractChartModel & model, const QString & path) {
	TiXmlDocument doc;
	doc.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
	TiXmlElement * root = new TiXmlElement("ChartModel");
	doc.LinkEndChild(root);
	const bool writeAll = model.writeAll();
	model.setWriteAll(true);
	model.writeXML(root);
	model.setWriteAll(writeAll);
	SCI::XMLFile::save(doc, path, "[DataIOFuzzXMLSeeds]");
}

/*! The colour map of a colour grid or vector chart; false for other charts. */
bool colorMap(const SCI::AbstractChartModel & model, SCI::ColorMap & map) {
	int role = -1;
	if (dynamic_cast<const SCI::AbstractColorGridSeriesModel *>(&model) != nullptr)
		role = SCI::AbstractColorGridSeriesModel::ColorGridColorMap;
	else if (dynamic_cast<const SCI::AbstractVectorFieldSeriesModel *>(&model) != nullptr)
		role = SCI::AbstractVectorFieldSeriesModel::VectorFieldColorMap;
	if (role < 0)
		return false;
	map = model.seriesData(0, role).value<SCI::ColorMap>();
	return true;
}

void writeSeeds(const QString & corpus, const QString & demoSession) {
	QTemporaryDir work;
	if (!work.isValid())
		throw ZEB::Exception("Cannot create a temporary folder.", "[DataIOFuzzXMLSeeds]");
	const QDir dir(corpus);
	for (const char * kind : { "session", "chart", "style", "colormap" })
		dir.mkpath(kind);

	const QString dataDir = QDir(work.path()).filePath("data");
	DATAIOFUZZ::SessionData::write(dataDir.toStdString());
	OVP::ProjectHandler handler;
	DEMO::SessionBuilder(dataDir).build(handler);
	OVP::Project & project = handler.project();
	addSubDirectories(project);
	// written beside the data, so that the data paths are "./data/..." as in the session target
	for (bool writeAll : { true, false }) {
		const QString name = writeAll ? "session-all.o2" : "session.o2";
		project.writeXML(QDir(work.path()).filePath(name), writeAll);
		QFile::copy(QDir(work.path()).filePath(name), dir.filePath("session/" + name));
	}
	if (!demoSession.isEmpty() && QFile::exists(demoSession))
		QFile::copy(demoSession, dir.filePath("session/demo.o2"));

	for (int i = 0; i < project.mapperModel()->mapperCount(); ++i) {
		SCI::AbstractChartModel & model = *project.mapperModel()->mapper(i)->chartModel();
		writeChartXML(model, dir.filePath(QString("chart/chart-%1.xml").arg(i + 1)));
		SCI::ChartStyleFile::save(model, dir.filePath(QString("style/chart-%1.o2style").arg(i + 1)));
		SCI::ColorMap map;
		if (colorMap(model, map))
			SCI::ColorMapFile::save(map, dir.filePath(QString("colormap/chart-%1.o2colormap").arg(i + 1)));
	}

	SCI::ColorMap map;
	map.m_type = SCI::ColorMap::AlphaMap;
	map.m_alphaColor = QColor(0x40, 0x80, 0xc0, 0x80);
	map.setLinearMap(QColor("#ffff00"), QColor("#000080"), 4);
	map.m_linearColorStops[1].m_color = QColor(1, 2, 3, 4);
	map.m_linearColorStops[2].m_color = QColor::fromRgba64(0x1234, 0x5678, 0x9abc);
	SCI::ColorMapFile::save(map, dir.filePath("colormap/alpha-and-16-bit.o2colormap"));
}

} // namespace


int main(int argc, char * argv[]) {
	if (argc < 2 || argc > 3) {
		std::cerr << "usage: DataIOFuzzXMLSeeds <corpus directory> [demo session file]\n";
		return 2;
	}
	DATAIOFUZZ::GuiEnvironment::start();
	try {
		writeSeeds(QString::fromLocal8Bit(argv[1]), argc == 3 ? QString::fromLocal8Bit(argv[2]) : QString());
	}
	catch (ZEB::Exception & ex) {
		std::cerr << ex.msgWithOrigin() << std::endl;
		return 1;
	}
	return 0;
}
