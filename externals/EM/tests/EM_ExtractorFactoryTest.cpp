#include <gtest/gtest.h>

#include <cstdlib>
#include <typeindex>
#include <typeinfo>

#include <DATAIO_DataIOWriter.h>
#include <DATAIO_GeoFileWriter.h>

#include <EM_Extractor2DFrom2D.h>
#include <EM_Extractor2DFrom3D.h>
#include <EM_Extractor2DFrom4D.h>
#include <EM_Extractor2DFrom5D.h>
#include <EM_Extractor2DFromReference.h>
#include <EM_Extractor3DFrom3D.h>
#include <EM_Extractor3DFrom4D.h>
#include <EM_Extractor3DFrom5D.h>
#include <EM_ExtractorFactory.h>
#include <EM_ExtractorVecFromFluxField.h>

#include "EM_ExtractorTestUtils.h"
#include "EM_TestUtils.h"

using EMTest::GridGeometry;
using EMTest::MessageRecorder;
using EMTest::expectError;
using EMTest::fieldContainer;

namespace {

/*! Path of a file in the test's scratch directory. */
std::string scratchFile(const std::string & name) {
	return std::string(std::getenv("ORVANE_TEST_SCRATCH")) + "/" + name;
}

} // namespace


TEST(EMExtractorFactory, CutTypeKeywords) {
	const char * const names[] = { "NoCut", "TimeCut", "XCut", "YCut", "XYCut", "XZCut", "YZCut", "XTCut", "YTCut",
								   "ZTCut", "XYZCut", "XYTCut", "XZTCut", "YZTCut" };
	ASSERT_EQ(sizeof(names)/sizeof(names[0]), static_cast<std::size_t>(EM::NUM_CT));
	for (int c = 0; c < EM::NUM_CT; ++c) {
		const EM::CutType type = static_cast<EM::CutType>(c);
		EXPECT_STREQ(EM::CutTypes::keyword(type), names[c]);
		EXPECT_EQ(EM::CutTypes::fromKeyword(names[c]), type);
		// the name lists the cut dimensions: X, Y, Z by letter, time by "T" (or "Time")
		const std::string name(names[c]);
		const std::string letters = name.substr(0, name.size() - 3);
		EXPECT_EQ(EM::CutTypes::isCut(type, EM::CD_X), letters.find('X') != std::string::npos) << name;
		EXPECT_EQ(EM::CutTypes::isCut(type, EM::CD_Y), letters.find('Y') != std::string::npos) << name;
		EXPECT_EQ(EM::CutTypes::isCut(type, EM::CD_Z), letters.find('Z') != std::string::npos) << name;
		EXPECT_EQ(EM::CutTypes::isCut(type, EM::CD_Time), letters.find('T') != std::string::npos) << name;
	}
	EXPECT_EQ(EM::CutTypes::fromKeyword("xcut"), EM::NUM_CT);
	EXPECT_STREQ(EM::CutTypes::keyword(EM::NUM_CT), "");
	EXPECT_EQ(EM::CutTypes::cutCount(EM::CT_XZTCut), 3u);
	EXPECT_FALSE(EM::CutTypes::isCut(EM::CT_XZTCut, EM::NUM_CD));
}


TEST(EMExtractorFactory, ExtractorPerDataFormatAndCutType) {
	typedef DATAIO::DataIO D;
	using namespace EM;
	EXPECT_EQ(ExtractorFactory::validCutTypes(D::DF_2D, D::T_FIELD), std::vector<CutType>({ CT_NoCut }));
	EXPECT_EQ(ExtractorFactory::validCutTypes(D::DF_3D, D::T_FIELD), std::vector<CutType>({ CT_NoCut, CT_TimeCut, CT_XCut }));
	EXPECT_EQ(ExtractorFactory::validCutTypes(D::DF_3D, D::T_FLUX), std::vector<CutType>({ CT_NoCut, CT_TimeCut, CT_XCut }));
	EXPECT_EQ(ExtractorFactory::validCutTypes(D::DF_4D, D::T_FIELD),
			  std::vector<CutType>({ CT_TimeCut, CT_XCut, CT_YCut, CT_XYCut, CT_XTCut, CT_YTCut }));
	EXPECT_EQ(ExtractorFactory::validCutTypes(D::DF_4D, D::T_FLUX), std::vector<CutType>({ CT_TimeCut }));
	EXPECT_EQ(ExtractorFactory::validCutTypes(D::DF_5D, D::T_FIELD),
			  std::vector<CutType>({ CT_XYCut, CT_XZCut, CT_YZCut, CT_XTCut, CT_YTCut, CT_ZTCut, CT_XYZCut, CT_XYTCut,
									 CT_XZTCut, CT_YZTCut }));
	EXPECT_TRUE(ExtractorFactory::validCutTypes(D::DF_5D, D::T_FLUX).empty());
	EXPECT_TRUE(ExtractorFactory::validCutTypes(D::NUM_DF, D::T_FIELD).empty());

	struct Case {
		D::DataFormat	m_format;
		D::OutputType	m_type;
		CutType			m_cut;
		std::type_index	m_kind;
	};
	const Case cases[] = {
		{ D::DF_2D, D::T_FIELD, CT_NoCut, typeid(Extractor2DFrom2D) },
		{ D::DF_2D, D::T_REFERENCE, CT_NoCut, typeid(Extractor2DFromReference) },
		{ D::DF_3D, D::T_FIELD, CT_NoCut, typeid(Extractor3DFrom3D) },
		{ D::DF_3D, D::T_FIELD, CT_XCut, typeid(Extractor2DFrom3D) },
		{ D::DF_3D, D::T_FLUX, CT_TimeCut, typeid(Extractor2DFrom3D) },
		{ D::DF_4D, D::T_FIELD, CT_TimeCut, typeid(Extractor3DFrom4D) },
		{ D::DF_4D, D::T_FIELD, CT_XTCut, typeid(Extractor2DFrom4D) },
		{ D::DF_4D, D::T_FLUX, CT_TimeCut, typeid(ExtractorVecFromFluxField) },
		{ D::DF_5D, D::T_FIELD, CT_ZTCut, typeid(Extractor3DFrom5D) },
		{ D::DF_5D, D::T_FIELD, CT_XYZCut, typeid(Extractor2DFrom5D) }
	};
	for (const Case & c : cases) {
		DATAIO::DataIO d;
		d.setType(c.m_type);
		d.setTimeUnit("h");
		d.setValueUnit("C");
		d.setDataFormat(c.m_format);
		std::unique_ptr<ExtractorBase> e = ExtractorFactory::createExtractor(&d, c.m_cut);
		const ExtractorBase & made = *e;
		EXPECT_EQ(std::type_index(typeid(made)), c.m_kind) << CutTypes::keyword(c.m_cut) << ": " << typeid(made).name();
		EXPECT_EQ(e->cutType(), c.m_cut);
		EXPECT_EQ(e->targetValueUnit(), ZEB::Unit("C"));
	}

	DATAIO::DataIO d;
	d.setTimeUnit("h");
	d.setValueUnit("C");
	d.setType(D::T_FIELD);
	d.setDataFormat(D::DF_4D);
	// the target units are the container's: time unit or metres on the axes
	std::unique_ptr<ExtractorBase> overTime = ExtractorFactory::createExtractor(&d, CT_XCut);
	EXPECT_EQ(overTime->targetXUnit(), ZEB::Unit("h"));
	EXPECT_EQ(overTime->targetYUnit(), ZEB::Unit("m"));
	std::unique_ptr<ExtractorBase> profile = ExtractorFactory::createExtractor(&d, CT_YTCut);
	EXPECT_EQ(profile->targetXUnit(), ZEB::Unit("m"));

	expectError([&]() { ExtractorFactory::createExtractor(&d, CT_NoCut); },
				"Cut type 'NoCut' is not valid for data format '4D [time, matrix 2x2 of values]'.",
				"[ExtractorFactory::createExtractor]");
	d.setType(D::T_FLUX);
	EXPECT_THROW(ExtractorFactory::createExtractor(&d, CT_XCut), ZEB::Exception);
	d.setDataFormat(D::NUM_DF);
	EXPECT_THROW(ExtractorFactory::createExtractor(&d, CT_NoCut), ZEB::Exception);
}


TEST(EMExtractorFactory, GrowingFileFollowedByTimeCut) {
	MessageRecorder rec;
	GridGeometry wall({ 0.01, 0.02, 0.04 }, { 1.0 });
	const std::string geoPath = scratchFile("wall.g6b");
	const std::string dataPath = scratchFile("wall.d6b");
	DATAIO::GeoFileWriter::write(geoPath, *wall.m_geo, true);

	// the simulation has written the header only
	std::unique_ptr<DATAIO::DataIO> header = fieldContainer({ 0, 1, 2 }, {}, {}, DATAIO::DataIO::DF_3D);
	header->setBinary(true);
	header->setGeoFileName("wall.g6b");
	DATAIO::DataIOWriter writer;
	writer.open(dataPath, *header);
	writer.flush();

	std::shared_ptr<DATAIO::GeoFile> geometry(new DATAIO::GeoFile);
	geometry->read(geoPath);
	DATAIO::DataIO d;
	d.read(dataPath);
	ASSERT_EQ(d.determineDataFormat(geometry.get()), DATAIO::DataIO::DF_3D);
	std::unique_ptr<EM::ExtractorBase> e = EM::ExtractorFactory::createExtractor(&d, EM::CT_TimeCut, geometry);
	EM::Extractor2DFrom3D & profile = dynamic_cast<EM::Extractor2DFrom3D &>(*e);
	e->update();
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_Waiting);
	EXPECT_TRUE(rec.errors().empty());

	const double r0[] = { 20, 19, 18 };
	const double r1[] = { 21, 20, 19 };
	const double r2[] = { 22, 21, 20 };
	writer.appendRecord(0, r0, 3);
	writer.appendRecord(1, r1, 3);
	writer.flush();
	d.refresh();
	e->update();
	ASSERT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_EQ(profile.y().m_data, std::vector<double>({ 21, 20, 19 }));
	EXPECT_EQ(e->targetXUnit(), ZEB::Unit("m"));
	ASSERT_EQ(profile.x().size(), 3u);
	EXPECT_NEAR(profile.x()[2], 0.05, 1e-15);

	writer.appendRecord(2, r2, 3);
	writer.close();
	d.refresh();
	e->update();
	EXPECT_EQ(profile.y().m_data, std::vector<double>({ 22, 21, 20 }));
	EXPECT_TRUE(rec.errors().empty());

	// generation 5 with the geometry embedded: no geometry needs to be given
	std::unique_ptr<DATAIO::DataIO> gen5 = fieldContainer({ 0, 1, 2 }, { 0, 1 }, { { 1, 2, 3 }, { 4, 5, 6 } },
														   DATAIO::DataIO::DF_3D);
	gen5->setFileVersion(5, 0);
	gen5->setGeometry(std::unique_ptr<DATAIO::GeoFile>(new DATAIO::GeoFile(*wall.m_geo)));
	const std::string gen5Path = scratchFile("wall.d5o");
	DATAIO::DataIOWriter::write(gen5Path, *gen5);
	DATAIO::DataIO read5;
	read5.read(gen5Path);
	ASSERT_EQ(read5.dataFormat(), DATAIO::DataIO::DF_3D);
	std::unique_ptr<EM::ExtractorBase> field = EM::ExtractorFactory::createExtractor(&read5, EM::CT_NoCut);
	EXPECT_EQ(field->geoFile(), read5.geometry());
	field->update();
	ASSERT_EQ(field->status(), EM::ExtractorBase::US_UpToDate);
	const EM::Extractor3DFrom3D & f = dynamic_cast<const EM::Extractor3DFrom3D &>(*field);
	ASSERT_EQ(f.y().size(), 4u);
	EXPECT_NEAR(f.y()[3], 0.07, 1e-15);
	EXPECT_EQ(f.value(1, 2), 6);
	EXPECT_TRUE(rec.errors().empty());
}
