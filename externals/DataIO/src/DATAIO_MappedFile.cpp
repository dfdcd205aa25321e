#include "DATAIO_MappedFile.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <limits>
#include <mutex>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace DATAIO {

/*! The process-wide SIGBUS handler behind MappedFile::Guard. */
struct MappedFileSignals {
	/*! Installs the handler once, keeping the disposition it replaces. */
	static void install() {
		static std::once_flag once;
		std::call_once(once, [] {
			struct sigaction action;
			std::memset(&action, 0, sizeof(action));
			action.sa_sigaction = &handler;
			action.sa_flags = SA_SIGINFO;
			sigemptyset(&action.sa_mask);
			sigaction(SIGBUS, &action, &s_previous);
		});
	}

	/*! A lost page of the mapping guarded on this thread is replaced and the access repeated;
		any other SIGBUS meets the disposition that was there before.
	*/
	static void handler(int sig, siginfo_t * info, void *) {
		const MappedFile * file = t_guarded;
		if (file != nullptr && info->si_code > 0 && file->replaceLostPages(info->si_addr))
			return;
		sigaction(SIGBUS, &s_previous, nullptr);
		// a fault repeats on return and meets the previous disposition; a sent signal is sent again
		if (info->si_code <= 0)
			raise(sig);
	}

	static struct sigaction					s_previous;
	static std::uintptr_t					s_pageSize;
	static thread_local const MappedFile *	t_guarded;
};

struct sigaction MappedFileSignals::s_previous;
std::uintptr_t MappedFileSignals::s_pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
thread_local const MappedFile * MappedFileSignals::t_guarded = nullptr;


MappedFile::~MappedFile() {
	unmap();
}


MappedFile::MappedFile(MappedFile && other) noexcept :
	m_data(other.m_data), m_size(other.m_size), m_copied(other.m_copied), m_cut(other.isCut())
{
	other.m_data = nullptr;
	other.m_size = 0;
}


MappedFile & MappedFile::operator=(MappedFile && other) noexcept {
	if (this != &other) {
		unmap();
		m_data = other.m_data;
		m_size = other.m_size;
		m_copied = other.m_copied;
		m_cut = other.isCut();
		other.m_data = nullptr;
		other.m_size = 0;
	}
	return *this;
}


void MappedFile::map(const std::string & filename, std::uint64_t size) {
	FUNCID(MappedFile::map);
	if (size > std::numeric_limits<std::size_t>::max())
		throw ZEB::Exception(ZEB::MessageFormat("File '%1' is too large to be mapped into memory.").arg(filename), FUNC_ID);
	char * data = nullptr;
	bool copied = false;
	bool cut = false;
	if (size > 0) {
		const int fd = ::open(filename.c_str(), O_RDONLY | O_CLOEXEC);
		if (fd < 0)
			throw ZEB::Exception(ZEB::MessageFormat("Cannot open file '%1'").arg(filename), FUNC_ID);
		void * p = ::mmap(nullptr, static_cast<std::size_t>(size), PROT_READ, MAP_SHARED, fd, 0);
		if (p == MAP_FAILED) {
			// some file systems (shares of virtual machines, kernel interfaces) cannot map files:
			// theirs are read into memory of this process instead
			const int mapError = errno;
			p = copy(fd, size, cut);
			copied = true;
			if (p == MAP_FAILED) {
				const int readError = errno;
				::close(fd);
				throw ZEB::Exception(ZEB::MessageFormat("Cannot map file '%1' into memory (%2), nor read it (%3).")
									 .arg(filename).arg(std::strerror(mapError)).arg(std::strerror(readError)), FUNC_ID);
			}
		}
		::close(fd);
		data = static_cast<char*>(p);
	}
	unmap();
	m_data = data;
	m_size = size;
	m_copied = copied;
	m_cut = cut;
}


void * MappedFile::copy(int fd, std::uint64_t size, bool & cut) {
	void * p = ::mmap(nullptr, static_cast<std::size_t>(size), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
	if (p == MAP_FAILED)
		return MAP_FAILED;
	char * bytes = static_cast<char*>(p);
	std::uint64_t done = 0;
	while (done < size) {
		const ssize_t got = ::pread(fd, bytes + done, static_cast<std::size_t>(size - done), static_cast<off_t>(done));
		if (got < 0 && errno == EINTR)
			continue;
		if (got < 0) {
			const int error = errno;
			::munmap(p, static_cast<std::size_t>(size));
			errno = error;
			return MAP_FAILED;
		}
		if (got == 0)
			break;
		done += static_cast<std::uint64_t>(got);
	}
	// a file shorter than asked for reads as NUL bytes after its end, as a cut mapping does
	cut = done < size;
	::mprotect(p, static_cast<std::size_t>(size), PROT_READ);
	return p;
}


void MappedFile::unmap() {
	if (m_data != nullptr)
		::munmap(m_data, static_cast<std::size_t>(m_size));
	m_data = nullptr;
	m_size = 0;
	m_copied = false;
	m_cut = false;
}


void MappedFile::release(std::uint64_t begin, std::uint64_t end) const {
	if (m_copied)
		return;	// the only copy of these bytes
	const std::uint64_t page = MappedFileSignals::s_pageSize;
	begin = (begin + page - 1)/page*page;
	end = std::min(end, m_size)/page*page;
	if (m_data != nullptr && end > begin)
		::madvise(m_data + begin, static_cast<std::size_t>(end - begin), MADV_DONTNEED);
}


bool MappedFile::replaceLostPages(const void * address) const {
	const std::uintptr_t a = reinterpret_cast<std::uintptr_t>(address);
	const std::uintptr_t begin = reinterpret_cast<std::uintptr_t>(m_data);
	if (m_data == nullptr || a < begin || a - begin >= m_size)
		return false;
	const std::uintptr_t page = MappedFileSignals::s_pageSize;
	const std::uintptr_t first = a/page*page;
	const std::uintptr_t end = (begin + m_size + page - 1)/page*page;
	// the pages after the lost one lie beyond the file's end as well
	if (::mmap(reinterpret_cast<void*>(first), end - first, PROT_READ, MAP_FIXED | MAP_PRIVATE | MAP_ANONYMOUS,
			   -1, 0) == MAP_FAILED)
		return false;
	m_cut = true;
	return true;
}


MappedFile::Guard::Guard(const MappedFile & file) :
	m_previous(MappedFileSignals::t_guarded)
{
	MappedFileSignals::install();
	MappedFileSignals::t_guarded = &file;
}


MappedFile::Guard::~Guard() {
	MappedFileSignals::t_guarded = m_previous;
}

} // namespace DATAIO
