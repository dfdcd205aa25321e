#include "SD_SampleDataSet.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>
#include <sstream>
#include <utility>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>
#include <DATAIO_GeoFileWriter.h>

#include "SD_CcdFileWriter.h"
#include "SD_Climate.h"
#include "SD_CornerDetail.h"
#include "SD_CornerResponse.h"
#include "SD_LayeredWall.h"
#include "SD_OutputFile.h"
#include "SD_Psychrometrics.h"
#include "SD_WallHeatSolver.h"
#include "SD_WallMoistureModel.h"

namespace SD {

namespace {

const char * const PROJECT_FILE = "sample_building.d6p";
const char * const CREATED = "2024-05-21 09:30:00";
const char * const WALL_GEOMETRY = "wall";
const char * const CORNER_GEOMETRY = "corner";
const char * const GEOMETRY_ASCII_EXT = ".g6a";
const char * const GEOMETRY_BINARY_EXT = ".g6b";
/*! The outdoor temperature of the climate in the CCD climate data format. */
const char * const CLIMATE_CCD_FILE = "climate_outdoor_temperature.ccd";

/*! Heat transfer at the wall surfaces in W/m2K and solar absorptance of the render. */
const double WALL_EXTERIOR_TRANSFER = 25.0;
const double WALL_INTERIOR_TRANSFER = 7.7;
const double SOLAR_ABSORPTANCE = 0.6;
/*! Radiation on the facade as share of the global radiation on the horizontal (a west facade,
	averaged over the day).
*/
const double FACADE_RADIATION_SHARE = 0.45;
/*! Driving rain on the facade in mm/h = factor * wind speed * rain^0.88 (wind onto the facade). */
const double DRIVING_RAIN_FACTOR = 0.2;

/*! The outputs of the set. */
enum OutputId {
	O_WALL_TEMPERATURE,
	O_WALL_RELHUM,
	O_WALL_MOISTURE_BRICK,
	O_WALL_INTERFACE_TEMPERATURE,
	O_WALL_INTERFACE_RELHUM,
	O_CORNER_TEMPERATURE,
	O_CORNER_HEATFLUX,
	O_CORNER_SURFACE_TEMPERATURE,
	O_CORNER_SURFACE_RELHUM,
	O_CLIMATE,
	NUM_O
};

/*! Which geometry an output refers to. */
enum Construction {
	C_WALL,
	C_CORNER,
	C_NONE
};

/*! Header data of an output that does not depend on the options. */
struct OutputDef {
	const char *					m_name;
	Construction					m_construction;
	DATAIO::DataIO::OutputType		m_type;
	DATAIO::DataIO::SpaceType		m_spaceType;
	const char *					m_quantity;
	const char *					m_keyword;
	const char *					m_valueUnit;
	const char *					m_timeUnit;		///< of the generation-6 files; generation 5 uses "s"
	bool							m_generation5;	///< also written in both generation-5 variants
};

const OutputDef OUTPUTS[NUM_O] = {
	{ "wall_temperature", C_WALL, DATAIO::DataIO::T_FIELD, DATAIO::DataIO::ST_SINGLE,
	  "Temperature", "Temperature", "C", "h", true },
	{ "wall_relhum", C_WALL, DATAIO::DataIO::T_FIELD, DATAIO::DataIO::ST_SINGLE,
	  "Relative humidity", "RelativeHumidity", "%", "h", false },
	{ "wall_moisture_brick", C_WALL, DATAIO::DataIO::T_FIELD, DATAIO::DataIO::ST_MEAN,
	  "Moisture mass density", "MoistureMassDensity", "kg/m3", "h", false },
	{ "wall_interface_temperature", C_WALL, DATAIO::DataIO::T_FIELD, DATAIO::DataIO::ST_SINGLE,
	  "Temperature", "Temperature", "C", "h", false },
	{ "wall_interface_relhum", C_WALL, DATAIO::DataIO::T_FIELD, DATAIO::DataIO::ST_SINGLE,
	  "Relative humidity", "RelativeHumidity", "%", "h", false },
	{ "corner_temperature", C_CORNER, DATAIO::DataIO::T_FIELD, DATAIO::DataIO::ST_SINGLE,
	  "Temperature", "Temperature", "C", "h", false },
	{ "corner_heatflux", C_CORNER, DATAIO::DataIO::T_FLUX, DATAIO::DataIO::ST_SINGLE,
	  "Heat conduction flux density", "HeatConductionFluxDensity", "W/m2", "s", false },
	{ "corner_surface_temperature", C_CORNER, DATAIO::DataIO::T_FIELD, DATAIO::DataIO::ST_SINGLE,
	  "Interior surface temperature", "SurfaceTemperature", "C", "h", true },
	{ "corner_surface_relhum", C_CORNER, DATAIO::DataIO::T_FIELD, DATAIO::DataIO::ST_SINGLE,
	  "Interior surface relative humidity", "SurfaceRelativeHumidity", "%", "h", true },
	{ "climate", C_NONE, DATAIO::DataIO::T_REFERENCE, DATAIO::DataIO::ST_SINGLE,
	  "Climate: outdoor temperature [C], outdoor relative humidity [%], global radiation [W/m2], "
	  "wind speed [m/s], rain [mm/h], indoor temperature [C], indoor relative humidity [%]",
	  "Climate", "-", "h", false }
};

/*! Columns of the climate reference file. */
const std::uint32_t CLIMATE_COLUMNS = 7;

/*! One file variant of an output. The extensions are those the data manager lists by default;
	both generation-5 variants have the same extension (their headers tell them apart), so their
	names differ before it.
*/
struct Variant {
	const char *	m_suffix;	///< appended to the output name
	bool			m_binary;
	bool			m_generation5;
};

const Variant VARIANTS[] = {
	{ ".s6o", false, false },
	{ ".s6b", true, false },
	{ "_gen5_ascii.out", false, true },
	{ "_gen5_binary.out", true, true }
};

/*! FNV-1a hash of the binary geometry data: changes whenever the geometry changes. */
std::uint32_t geometryHash(const DATAIO::GeoFile & geometry) {
	std::ostringstream out;
	DATAIO::GeoFileWriter::writeBinaryGeometryData(out, geometry);
	std::uint32_t hash = 2166136261u;
	for (char c : out.str()) {
		hash ^= static_cast<unsigned char>(c);
		hash *= 16777619u;
	}
	return hash;
}

/*! The file names of an output, in the order of VARIANTS. */
std::vector<std::string> outputFileNames(const OutputDef & def) {
	std::vector<std::string> names;
	for (const Variant & v : VARIANTS)
		if (!v.m_generation5 || def.m_generation5)
			names.push_back(std::string(def.m_name) + v.m_suffix);
	return names;
}

/*! Mean of the first count values (all when there are fewer). */
double meanOfFirst(const std::vector<double> & values, std::size_t count) {
	count = std::min(count, values.size());
	double sum = 0;
	for (std::size_t i = 0; i < count; ++i)
		sum += values[i];
	return sum/static_cast<double>(count);
}

/*! The geometries of the set with their hashes. */
struct Geometries {
	DATAIO::GeoFile		m_wall;
	DATAIO::GeoFile		m_corner;
	std::uint32_t		m_wallHash;
	std::uint32_t		m_cornerHash;
};

/*! Header of one file of an output. */
DATAIO::DataIO makeHeader(const OutputDef & def, const Variant & variant, const std::vector<std::uint32_t> & nums,
						  const Geometries & geometries, int startYear) {
	DATAIO::DataIO header;
	header.setBinary(variant.m_binary);
	header.setNums(nums);
	header.setType(def.m_type);
	header.setSpaceType(def.m_spaceType);
	header.setTimeType(DATAIO::DataIO::TT_NONE);
	header.setProjectFileName(PROJECT_FILE);
	header.setQuantity(def.m_quantity);
	header.setQuantityKeyword(def.m_keyword);
	header.setValueUnit(def.m_valueUnit);
	header.setTimeUnit(variant.m_generation5 ? "s" : def.m_timeUnit);
	header.setStartYear(startYear);
	header.setCreatedTime(CREATED);
	const DATAIO::GeoFile * geometry = nullptr;
	if (def.m_construction == C_WALL) {
		geometry = &geometries.m_wall;
		header.setGeoFileName(std::string(WALL_GEOMETRY) + (variant.m_binary ? GEOMETRY_BINARY_EXT : GEOMETRY_ASCII_EXT));
		header.setGeoFileHash(geometries.m_wallHash);
	}
	else if (def.m_construction == C_CORNER) {
		geometry = &geometries.m_corner;
		header.setGeoFileName(std::string(CORNER_GEOMETRY) + (variant.m_binary ? GEOMETRY_BINARY_EXT : GEOMETRY_ASCII_EXT));
		header.setGeoFileHash(geometries.m_cornerHash);
	}
	if (variant.m_generation5) {
		// only outputs of a construction have generation-5 variants (OUTPUTS), so geometry is set
		header.setFileVersion(DATAIO::DataIO::PRE_V6_MAJOR_FILE_VERSION, 0);
		header.setGeoFileName(std::string());
		header.setGeoFileHash(0);
		std::unique_ptr<DATAIO::GeoFile> embedded(new DATAIO::GeoFile(*geometry));
		embedded->setFileVersion(DATAIO::DataIO::PRE_V6_MAJOR_FILE_VERSION, 0);
		header.setGeometry(std::move(embedded));
	}
	return header;
}

/*! Numbers 0 .. count-1. */
std::vector<std::uint32_t> allNumbers(std::size_t count) {
	std::vector<std::uint32_t> nums(count);
	for (std::size_t i = 0; i < count; ++i)
		nums[i] = static_cast<std::uint32_t>(i);
	return nums;
}

} // namespace


SampleDataSet::SampleDataSet(const Options & options) :
	m_options(options)
{
	FUNCID(SampleDataSet::SampleDataSet);
	if (options.m_hours == 0)
		throw ZEB::Exception("The simulated period must be at least one hour.", FUNC_ID);
	if (options.m_detailStep == 0)
		throw ZEB::Exception("The step of the corner field outputs must be at least one hour.", FUNC_ID);
	if (options.m_wallElements < LayeredWall::MIN_ELEMENTS_PER_LAYER*LayeredWall::sampleLayers().size())
		throw ZEB::Exception(ZEB::MessageFormat("The wall needs at least %1 elements.")
							 .arg(static_cast<unsigned long>(LayeredWall::MIN_ELEMENTS_PER_LAYER*LayeredWall::sampleLayers().size())), FUNC_ID);
	if (options.m_detailCells < CornerDetail::MIN_CELLS)
		throw ZEB::Exception(ZEB::MessageFormat("The corner detail needs at least %1 cells per direction.")
							 .arg(CornerDetail::MIN_CELLS), FUNC_ID);
	const std::vector<std::string> all = allFileNames();
	for (const std::string & name : options.m_only) {
		bool known = false;
		for (const std::string & file : all)
			known = known || file == name || outputName(file) == name;
		if (!known)
			throw ZEB::Exception(ZEB::MessageFormat("Unknown output '%1'; use a file name of the set, e.g. "
				"'wall_temperature.s6o', or an output name, e.g. 'wall_temperature'.").arg(name), FUNC_ID);
	}
}


std::vector<std::string> SampleDataSet::allFileNames() {
	std::vector<std::string> names;
	for (const char * geo : { WALL_GEOMETRY, CORNER_GEOMETRY }) {
		names.push_back(std::string(geo) + GEOMETRY_ASCII_EXT);
		names.push_back(std::string(geo) + GEOMETRY_BINARY_EXT);
	}
	for (const OutputDef & def : OUTPUTS)
		for (const std::string & name : outputFileNames(def))
			names.push_back(name);
	names.push_back(CLIMATE_CCD_FILE);
	return names;
}


std::string SampleDataSet::outputName(const std::string & fileName) {
	if (fileName == CLIMATE_CCD_FILE)
		return OUTPUTS[O_CLIMATE].m_name;
	for (const OutputDef & def : OUTPUTS)
		for (const std::string & name : outputFileNames(def))
			if (name == fileName)
				return def.m_name;
	for (const char * geo : { WALL_GEOMETRY, CORNER_GEOMETRY })
		if (fileName == std::string(geo) + GEOMETRY_ASCII_EXT || fileName == std::string(geo) + GEOMETRY_BINARY_EXT)
			return geo;
	return std::string();
}


bool SampleDataSet::isSelected(const std::string & fileName) const {
	if (m_options.m_only.empty())
		return true;
	for (const std::string & name : m_options.m_only)
		if (name == fileName || name == outputName(fileName))
			return true;
	return false;
}


std::vector<SampleDataSet::WrittenFile> SampleDataSet::write() {
	FUNCID(SampleDataSet::write);
	namespace fs = std::filesystem;
	try {
		const std::string dir = m_options.m_directory;
		std::error_code ec;
		fs::create_directories(dir, ec);
		if (ec)
			throw ZEB::Exception(ZEB::MessageFormat("Cannot create directory '%1': %2").arg(dir).arg(ec.message()), FUNC_ID);

		const Climate climate(m_options.m_seed, m_options.m_hours);
		const LayeredWall wall(LayeredWall::sampleLayers(), m_options.m_wallElements);
		const CornerDetail corner(m_options.m_detailCells);
		Geometries geometries{ wall.geometry(), corner.geometry(), 0, 0 };
		geometries.m_wallHash = geometryHash(geometries.m_wall);
		geometries.m_cornerHash = geometryHash(geometries.m_corner);

		const std::pair<const char *, const DATAIO::GeoFile *> geometryFiles[] = {
			{ WALL_GEOMETRY, &geometries.m_wall }, { CORNER_GEOMETRY, &geometries.m_corner } };
		for (const auto & geo : geometryFiles)
			for (bool binary : { false, true }) {
				const std::string name = std::string(geo.first) + (binary ? GEOMETRY_BINARY_EXT : GEOMETRY_ASCII_EXT);
				if (isSelected(name))
					DATAIO::GeoFileWriter::write(dir + "/" + name, *geo.second, binary);
			}

		// element and side numbers of each output
		const std::size_t brickLayer = 1;
		const std::uint32_t interfaceElement = static_cast<std::uint32_t>(wall.firstElement(brickLayer + 1) - 1);
		std::vector<std::uint32_t> brickElements;
		for (std::size_t i = wall.firstElement(brickLayer); i < wall.firstElement(brickLayer + 1); ++i)
			brickElements.push_back(static_cast<std::uint32_t>(i));
		const std::uint32_t cornerSurfaceElement = static_cast<std::uint32_t>(corner.cornerSurfaceElement());
		std::vector<std::vector<std::uint32_t>> nums(NUM_O);
		nums[O_WALL_TEMPERATURE] = allNumbers(wall.elementCount());
		nums[O_WALL_RELHUM] = nums[O_WALL_TEMPERATURE];
		nums[O_WALL_MOISTURE_BRICK] = brickElements;
		nums[O_WALL_INTERFACE_TEMPERATURE] = { interfaceElement };
		nums[O_WALL_INTERFACE_RELHUM] = { interfaceElement };
		nums[O_CORNER_TEMPERATURE] = allNumbers(corner.elementCount());
		nums[O_CORNER_HEATFLUX] = allNumbers(corner.sideLinks().size());
		nums[O_CORNER_SURFACE_TEMPERATURE] = { cornerSurfaceElement };
		nums[O_CORNER_SURFACE_RELHUM] = { cornerSurfaceElement };
		nums[O_CLIMATE] = allNumbers(CLIMATE_COLUMNS);

		std::vector<OutputFile> outputs(NUM_O);
		for (int o = 0; o < NUM_O; ++o)
			for (const Variant & v : VARIANTS) {
				const std::string name = std::string(OUTPUTS[o].m_name) + v.m_suffix;
				if ((!v.m_generation5 || OUTPUTS[o].m_generation5) && isSelected(name))
					outputs[o].addFile(dir + "/" + name, makeHeader(OUTPUTS[o], v, nums[o], geometries, m_options.m_startYear));
			}

		// initial state: steady state of the first day, moisture of the first month
		const std::vector<double> & outdoorT = climate.outdoorTemperature();
		const std::vector<double> & indoorT = climate.indoorTemperature();
		std::vector<double> outdoorPv(climate.hours());
		std::vector<double> indoorPv(climate.hours());
		std::vector<double> facadeRadiation(climate.hours());
		for (std::size_t h = 0; h < climate.hours(); ++h) {
			outdoorPv[h] = Psychrometrics::vapourPressure(outdoorT[h], climate.outdoorRelHum()[h]);
			indoorPv[h] = Psychrometrics::vapourPressure(indoorT[h], climate.indoorRelHum()[h]);
			facadeRadiation[h] = FACADE_RADIATION_SHARE*climate.globalRadiation()[h];
		}
		WallHeatSolver heat(wall, WALL_EXTERIOR_TRANSFER, WALL_INTERIOR_TRANSFER, SOLAR_ABSORPTANCE);
		heat.setSteadyState(meanOfFirst(outdoorT, 24), meanOfFirst(facadeRadiation, 24), meanOfFirst(indoorT, 24));
		WallMoistureModel moisture(wall);
		moisture.setSteadyState(meanOfFirst(outdoorPv, 720), meanOfFirst(indoorPv, 720));
		CornerResponse cornerResponse(corner);
		cornerResponse.setSteadyState(meanOfFirst(outdoorT, 24));

		std::vector<double> wallRelHum, cornerT, cornerFlux;
		std::vector<double> single(1), reference(CLIMATE_COLUMNS);
		for (std::size_t h = 0; h < climate.hours(); ++h) {
			const double te = outdoorT[h];
			const double ti = indoorT[h];
			heat.step(1800, te, facadeRadiation[h], ti);
			heat.step(1800, te, facadeRadiation[h], ti);
			const double drivingRain = DRIVING_RAIN_FACTOR*climate.windSpeed()[h]*std::pow(climate.rain()[h], 0.88);
			moisture.step(1.0, outdoorPv[h], indoorPv[h], drivingRain, heat.exteriorSurfaceTemperature());
			cornerResponse.step(1.0, te);
			const double t = static_cast<double>(h + 1);

			const std::vector<double> & wallT = heat.temperatures();
			moisture.relativeHumidity(wallT, wallRelHum);
			outputs[O_WALL_TEMPERATURE].append(t, wallT);
			outputs[O_WALL_RELHUM].append(t, wallRelHum);
			single[0] = moisture.layerMoistureContent(brickLayer, wallRelHum);
			outputs[O_WALL_MOISTURE_BRICK].append(t, single);
			single[0] = wallT[interfaceElement];
			outputs[O_WALL_INTERFACE_TEMPERATURE].append(t, single);
			single[0] = wallRelHum[interfaceElement];
			outputs[O_WALL_INTERFACE_RELHUM].append(t, single);

			cornerResponse.temperatures(ti, cornerT);
			const double surfaceT = corner.surfaceTemperature(corner.cornerSurfaceSide(), ti, cornerT[cornerSurfaceElement]);
			single[0] = surfaceT;
			outputs[O_CORNER_SURFACE_TEMPERATURE].append(t, single);
			single[0] = 100.0*Psychrometrics::boundedRelativeHumidity(indoorPv[h], surfaceT);
			outputs[O_CORNER_SURFACE_RELHUM].append(t, single);
			if ((h + 1) % m_options.m_detailStep == 0) {
				outputs[O_CORNER_TEMPERATURE].append(t, cornerT);
				if (!outputs[O_CORNER_HEATFLUX].isEmpty()) {
					cornerResponse.fluxes(te, ti, cornerT, cornerFlux);
					outputs[O_CORNER_HEATFLUX].append(t, cornerFlux);
				}
			}

			reference[0] = te;
			reference[1] = climate.outdoorRelHum()[h];
			reference[2] = climate.globalRadiation()[h];
			reference[3] = climate.windSpeed()[h];
			reference[4] = climate.rain()[h];
			reference[5] = ti;
			reference[6] = climate.indoorRelHum()[h];
			outputs[O_CLIMATE].append(t, reference);
		}
		for (OutputFile & o : outputs)
			o.close();
		if (isSelected(CLIMATE_CCD_FILE))
			CcdFileWriter::write(dir + "/" + CLIMATE_CCD_FILE, "Outdoor air temperature of the sample building's climate",
								 m_options.m_startYear, "TEMPER", "C", outdoorT);

		std::vector<WrittenFile> written;
		for (const std::string & name : allFileNames())
			if (isSelected(name))
				written.push_back(WrittenFile{ name, static_cast<std::uint64_t>(fs::file_size(dir + "/" + name)) });
		return written;
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error writing the sample data set into '%1'.").arg(m_options.m_directory), FUNC_ID);
	}
	catch (std::exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error writing the sample data set into '%1'.").arg(m_options.m_directory), FUNC_ID);
	}
}

} // namespace SD
