#ifndef DATAIO_MemoryAdviceH
#define DATAIO_MemoryAdviceH

#include <cstddef>
#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace DATAIO {

/*! Hints to the operating system about large buffers that are about to be filled. */
class MemoryAdvice {
public:
	/*! Asks for huge pages for the 2 MB-aligned interior of [p, p + size): filling fresh memory
		costs one page fault per 4 kB page, huge pages cut that to one per 2 MB, which matters
		when a gigabyte of text or values is taken in. Only a hint; a no-op where unsupported.
	*/
	static void useHugePages(void * p, std::size_t size) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
		const std::uintptr_t huge = std::uintptr_t(2) << 20;
		const std::uintptr_t begin = (reinterpret_cast<std::uintptr_t>(p) + huge - 1) & ~(huge - 1);
		const std::uintptr_t end = (reinterpret_cast<std::uintptr_t>(p) + size) & ~(huge - 1);
		if (end > begin)
			madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#else
		(void)p;
		(void)size;
#endif
	}
};

} // namespace DATAIO

#endif // DATAIO_MemoryAdviceH
