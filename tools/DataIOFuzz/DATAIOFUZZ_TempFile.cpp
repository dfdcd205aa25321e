#include "DATAIOFUZZ_TempFile.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <unistd.h>

namespace DATAIOFUZZ {

namespace {

/*! Writes size bytes at the end of the file, which is emptied first when truncate is set. An
	input that cannot be written would make every run meaningless, so that stops the fuzzer.
*/
void writeFile(const std::string & path, const std::uint8_t * data, std::size_t size, bool truncate) {
	std::FILE * f = std::fopen(path.c_str(), truncate ? "wb" : "ab");
	if (f == nullptr || (size > 0 && std::fwrite(data, 1, size, f) != size) || std::fclose(f) != 0) {
		std::fprintf(stderr, "Cannot write fuzz input file '%s'.\n", path.c_str());
		std::abort();
	}
}

} // namespace


TempFile::TempFile(const std::string & tag) :
	m_path(scratchPath(tag))
{
}


TempFile::~TempFile() {
	std::remove(m_path.c_str());
}


void TempFile::write(const std::uint8_t * data, std::size_t size) const {
	writeFile(m_path, data, size, true);
}


void TempFile::append(const std::uint8_t * data, std::size_t size) const {
	writeFile(m_path, data, size, false);
}


std::string TempFile::scratchPath(const std::string & tag) {
	namespace fs = std::filesystem;
	std::error_code ec;
	const fs::path dir = fs::is_directory("/dev/shm", ec) ? fs::path("/dev/shm") : fs::temp_directory_path();
	return (dir / ("orvane-fuzz-" + std::to_string(getpid()) + "-" + tag)).string();
}

} // namespace DATAIOFUZZ
