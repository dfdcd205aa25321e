#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include <pwd.h>
#include <unistd.h>

#include <ZEB_Exception.h>
#include <ZEB_Path.h>

#include "ZEB_TestSupport.h"

using ZEB::Path;

namespace {

/*! Changes into a directory for the lifetime of the object and back afterwards. */
class CurrentDirGuard {
public:
	explicit CurrentDirGuard(const std::filesystem::path & dir) : m_saved(std::filesystem::current_path()) {
		std::filesystem::current_path(dir);
	}
	~CurrentDirGuard() { std::filesystem::current_path(m_saved); }
private:
	std::filesystem::path m_saved;
};

/*! Sets an environment variable for the lifetime of the object (null unsets it). */
class EnvGuard {
public:
	EnvGuard(const char * name, const char * value) : m_name(name) {
		const char * old = std::getenv(name);
		m_hadValue = old != nullptr;
		if (m_hadValue)
			m_old = old;
		if (value != nullptr)
			setenv(name, value, 1);
		else
			unsetenv(name);
	}
	~EnvGuard() {
		if (m_hadValue)
			setenv(m_name.c_str(), m_old.c_str(), 1);
		else
			unsetenv(m_name.c_str());
	}
private:
	std::string m_name;
	std::string m_old;
	bool		m_hadValue = false;
};

std::filesystem::path scratchDir() {
	const char * dir = std::getenv("ORVANE_TEST_SCRATCH");
	std::filesystem::path p = dir != nullptr ? std::filesystem::path(dir) : std::filesystem::temp_directory_path();
	p /= "PathTest";
	std::filesystem::create_directories(p);
	return p;
}

} // namespace


TEST(ZEBPath, NormalisationRules) {
	const std::vector<std::pair<std::string, std::string> > cases = {
		{"a/b/../c",				"a/c"},
		{"a\\b\\c",					"a/b/c"},
		{"/a//b///c/",				"/a/b/c"},
		{"./a/./b/.",				"a/b"},
		{"../../a",					"../../a"},
		{"a/../../b",				"../b"},
		{"a/..",					"."},
		{".",						"."},
		{"./",						"."},
		{"/..",						"/"},
		{"/../a/../../b",			"/b"},
		{"///a",					"/a"},
		{"c:\\Data\\x\\",			"C:/Data/x"},
		{"C:",						"C:/"},
		{"C:abc",					"C:/abc"},
		{"d:/..",					"D:/"},
		{"\\\\server\\share\\dir",	"//server/share/dir"},
		{"//server/../..",			"//server"},
		{"//server",				"//server"},
		{"./c:/x",					"./c:/x"},
		{"x/../c:/y",				"./c:/y"},
		{"Ärger/Ölpreis/../ß.txt",	"Ärger/ß.txt"},
	};
	for (const auto & c : cases) {
		Path p(c.first);
		EXPECT_EQ(p.str(), c.second) << "input: " << c.first;
		// normalising twice changes nothing
		EXPECT_EQ(Path(p.str()), p) << "input: " << c.first;
		EXPECT_TRUE(p.isValid());
	}

	EXPECT_TRUE(Path("/a").isAbsolute());
	EXPECT_TRUE(Path("C:/a").isAbsolute());
	EXPECT_TRUE(Path("//srv/a").isAbsolute());
	EXPECT_FALSE(Path("a/b").isAbsolute());
	EXPECT_FALSE(Path("./c:/x").isAbsolute());
	EXPECT_EQ(Path("e:/x").drive(), "E:");
	EXPECT_EQ(Path("/x").drive(), "");
	EXPECT_EQ(Path("./c:/x").drive(), "");

	EXPECT_FALSE(Path().isValid());
	EXPECT_FALSE(Path("").isValid());
	EXPECT_FALSE(Path(static_cast<const char *>(nullptr)).isValid());
	EXPECT_FALSE(Path(std::string("a\0b", 3)).isValid());

	EXPECT_EQ(Path("c:/a"), Path("C:\\a\\"));
	EXPECT_NE(Path("/A"), Path("/a"));
	EXPECT_LT(Path("/a"), Path("/b"));
}


TEST(ZEBPath, RelativePathExamples) {
	EXPECT_EQ(Path("/p/data/run1").relativePath("/p/project").str(), "../data/run1");
	EXPECT_EQ(Path("/p/project").relativePath("/p/project/").str(), ".");
	EXPECT_EQ(Path("/a").relativePath("/a/b/c").str(), "../..");
	EXPECT_EQ(Path("/a/b/c").relativePath("/a").str(), "b/c");
	EXPECT_EQ(Path("/").relativePath("/a/b").str(), "../..");
	EXPECT_EQ(Path("/a/b").relativePath("/").str(), "a/b");
	EXPECT_EQ(Path("C:\\x\\y").relativePath("c:/x/z").str(), "../y");
	EXPECT_EQ(Path("//srv/share/a").relativePath("//srv/share/b").str(), "../a");
	// a component that looks like a drive stays relative
	EXPECT_EQ(Path("/p/c:x").relativePath("/p").str(), "./c:x");
	EXPECT_EQ((Path("/p") / Path("/p/c:x").relativePath("/p")).str(), "/p/c:x");
	// relative paths are taken relative to the current directory
	EXPECT_EQ(Path("data/run1").relativePath("data").str(), "run1");
	EXPECT_EQ(Path("/") / Path("a").relativePath("/"), Path(std::filesystem::current_path().string()) / "a");
	EXPECT_EQ(Path("/p/a").relativePath("b"), Path("/p/a").relativePath(Path::current() / "b"));

	expectError([] { Path("C:/a").relativePath("D:/a"); }, "Different drives.", "[Path::relativePath]");
	expectError([] { Path("C:/a").relativePath("/a"); }, "Different drives.", "[Path::relativePath]");
	// relative paths resolve against the Linux current directory, which has no drive
	expectError([] { Path("a").relativePath("C:/x"); }, "Different drives.", "[Path::relativePath]");
	expectError([] { Path("//srv1/a").relativePath("//srv2/a"); }, "Different drives.", "[Path::relativePath]");
	expectError([] { Path("").relativePath("/a"); }, "Invalid original path: ''", "[Path::relativePath]");
	expectError([] { Path("/a").relativePath(Path()); }, "Invalid to path: ''", "[Path::relativePath]");
}


TEST(ZEBPath, RelativePathRoundTripsOverGeneratedPairs) {
	std::mt19937 rng(4711);
	const std::vector<std::string> roots = {"/", "C:/", "//srv/"};
	const std::vector<std::string> names = {"a", "b", "data", "run1", "x.y", "Ärger", "c:d", "..x", "proj ect"};
	auto pick = [&](std::size_t n) { return static_cast<std::size_t>(rng() % n); };

	// writes components with noise that normalisation must remove: ".", "name/..", doubled
	// and trailing separators, backslashes
	auto noisy = [&](const std::string & root, const std::vector<std::string> & comps) {
		std::string s = root;
		for (const std::string & c : comps) {
			if (pick(4) == 0)
				s += "./";
			if (pick(5) == 0)
				s += names[pick(names.size())] + "/../";
			s += c;
			s += pick(3) == 0 ? "\\" : (pick(4) == 0 ? "//" : "/");
		}
		return s;
	};

	for (int i = 0; i < 3000; ++i) {
		const std::string root = roots[pick(roots.size())];
		std::vector<std::string> common(pick(4));
		for (std::string & c : common)
			c = names[pick(names.size())];
		std::vector<std::string> fromComps = common;
		std::vector<std::string> toComps = common;
		for (std::size_t k = pick(4); k > 0; --k)
			fromComps.push_back(names[pick(names.size())]);
		for (std::size_t k = pick(4); k > 0; --k)
			toComps.push_back(names[pick(names.size())]);

		const Path from(noisy(root, fromComps));
		const Path to(noisy(root, toComps));
		const Path rel = from.relativePath(to);
		ASSERT_FALSE(rel.isAbsolute()) << from << " rel " << to;
		EXPECT_EQ(to / rel, from) << from << " rel " << to << " = " << rel;

		// the shortest way: one ".." per component of "to" beyond the shared prefix
		std::size_t shared = 0;
		while (shared < fromComps.size() && shared < toComps.size() && fromComps[shared] == toComps[shared])
			++shared;
		std::size_t ups = 0;
		for (std::size_t b = 0; b < rel.branchCount(); ++b)
			if (rel.subBranch(b, 1).str() == "..")
				++ups;
		EXPECT_EQ(ups, toComps.size() - shared) << from << " rel " << to << " = " << rel;
		EXPECT_EQ(rel.branchCount(), ups + fromComps.size() - shared);
		EXPECT_EQ(Path(rel.str()), rel);
	}

	// relative inputs: both sides are resolved against the current directory
	for (int i = 0; i < 200; ++i) {
		std::vector<std::string> fromComps(1 + pick(3));
		std::vector<std::string> toComps(pick(3));
		for (std::string & c : fromComps)
			c = names[pick(names.size())];
		for (std::string & c : toComps)
			c = names[pick(names.size())];
		const Path from(noisy("./", fromComps));
		const Path to(noisy("./", toComps));
		EXPECT_EQ(to.absolutePath() / from.relativePath(to), from.absolutePath());
	}
}


TEST(ZEBPath, ParentFilenameAndBranches) {
	EXPECT_EQ(Path("/a/b").parentPath().str(), "/a");
	EXPECT_EQ(Path("/a").parentPath().str(), "/");
	EXPECT_EQ(Path("C:/a").parentPath().str(), "C:/");
	EXPECT_EQ(Path("//srv/a").parentPath().str(), "//srv");
	EXPECT_EQ(Path("a").parentPath().str(), ".");
	EXPECT_EQ(Path("../a").parentPath().str(), "..");
	EXPECT_EQ(Path("x/c:y").parentPath().str(), "x");
	for (const char * noParent : {"/", "C:/", "//srv", ".", "..", "../.."})
		expectError([&] { Path(noParent).parentPath(); }, "No parent possible.", "[Path::parentPath]");
	expectError([] { Path().parentPath(); }, "Invalid path: ''", "[Path::parentPath]");

	EXPECT_EQ(Path("/a/b.txt").filename().str(), "b.txt");
	EXPECT_EQ(Path("C:/data/").filename().str(), "data");
	EXPECT_EQ(Path("x/c:y").filename().str(), "./c:y");
	EXPECT_EQ(Path("..").filename().str(), "..");
	EXPECT_FALSE(Path("/").filename().isValid());
	expectError([] { Path().filename(); }, "Empty/invalid path.", "[Path::filename]");

	const Path p("/a/b/c");
	ASSERT_EQ(p.branchCount(), 4u);
	EXPECT_EQ(p.subBranch(0, 1).str(), "/");
	EXPECT_EQ(p.subBranch(0, 2).str(), "/a");
	EXPECT_EQ(p.subBranch(1, 2).str(), "a/b");
	EXPECT_EQ(p.subBranch(3, 1).str(), "c");
	EXPECT_EQ(Path("../a").branchCount(), 2u);
	EXPECT_EQ(Path(".").branchCount(), 0u);
	EXPECT_EQ(Path("C:/x").subBranch(0, 1).str(), "C:/");
	expectError([&] { p.subBranch(0, 5); }, "Insufficient branches for given count.", "[Path::subBranch]");
	expectError([&] { p.subBranch(0, 0); }, "Insufficient branches for given count.", "[Path::subBranch]");
	expectError([&] { p.subBranch(4, 1); }, "Illegal index for branch start.", "[Path::subBranch]");
	expectError([&] { p.subBranch(2, 3); }, "Start index or count too large.", "[Path::subBranch]");
	expectError([] { Path().subBranch(0, 1); }, "Empty/invalid path.", "[Path::subBranch]");

	// splitting at any branch and joining again gives the path; the parent joined with the
	// file name, too
	for (const char * text : {"/a/b/c", "C:/x/y.z", "//srv/share/d", "../../a/b", "a", "x/c:y/z"}) {
		const Path q(text);
		const std::size_t n = q.branchCount();
		for (std::size_t k = 1; k < n; ++k)
			EXPECT_EQ(q.subBranch(0, k) / q.subBranch(k, n - k), q) << text << " split at " << k;
		EXPECT_EQ(q.subBranch(0, n), q);
		if (q.filename().str() != "..") {
			EXPECT_EQ(q.parentPath() / q.filename(), q) << text;
		}
	}
}


TEST(ZEBPath, Extensions) {
	EXPECT_EQ(Path("a.tar.gz").extension(), "gz");
	EXPECT_EQ(Path("a.tar.gz").withoutExtension().str(), "a.tar");
	EXPECT_EQ(Path("/x/.bashrc").extension(), "");
	EXPECT_EQ(Path("/x/.bashrc").withoutExtension().str(), "/x/.bashrc");
	EXPECT_EQ(Path("dir.d/file").extension(), "");
	EXPECT_EQ(Path("x/a.").extension(), "");
	EXPECT_EQ(Path("x/a.").withoutExtension().str(), "x/a");
	EXPECT_EQ(Path("x/..y").extension(), "");
	EXPECT_EQ(Path("..").extension(), "");
	EXPECT_EQ(Path("/").extension(), "");

	EXPECT_TRUE(Path("chart.PDF").hasExtension("pdf"));
	EXPECT_TRUE(Path("chart.pdf").hasExtension(".PDF"));
	EXPECT_FALSE(Path("chart.pdf").hasExtension("pd"));
	EXPECT_FALSE(Path("chart").hasExtension("pdf"));
	EXPECT_TRUE(Path("chart").hasExtension(""));

	EXPECT_EQ(Path("out/chart.png").withExtension("svg").str(), "out/chart.svg");
	EXPECT_EQ(Path("out/chart.png").withExtension(".svg").str(), "out/chart.svg");
	EXPECT_EQ(Path("out/chart").withExtension("svg").str(), "out/chart.svg");
	EXPECT_EQ(Path("out/chart.png").withExtension("").str(), "out/chart");
	EXPECT_EQ(Path("c:x.png").withExtension("svg").str(), "C:/x.svg");
	expectError([] { Path("/").withExtension("svg"); }, "Path '/' has no file name.", "[Path::withExtension]");
	expectError([] { Path("a/..").withExtension("svg"); }, "Path '.' has no file name.", "[Path::withExtension]");
	expectError([] { Path().extension(); }, "Empty/invalid path.", "[Path::extension]");
	expectError([] { Path().withoutExtension(); }, "Empty/invalid path.", "[Path::withoutExtension]");
	expectError([] { Path().hasExtension("a"); }, "Empty/invalid path.", "[Path::hasExtension]");
}


TEST(ZEBPath, Joining) {
	EXPECT_EQ((Path("a/b") / "../c").str(), "a/c");
	EXPECT_EQ((Path("/p/project") / "../data/run1").str(), "/p/data/run1");
	EXPECT_EQ((Path("/p") / "C:/x").str(), "C:/x");
	EXPECT_EQ((Path("C:/") / "x").str(), "C:/x");
	EXPECT_EQ((Path("//srv") / "x").str(), "//srv/x");
	EXPECT_EQ((Path("/") / "..").str(), "/");
	EXPECT_EQ((Path("/") / "x").str(), "/x");
	EXPECT_EQ((Path(".") / "..").str(), "..");
	EXPECT_EQ((Path("a") / "./c:/x").str(), "a/c:/x");
	Path p("/base");
	p /= "sub";
	EXPECT_EQ(p.str(), "/base/sub");

	expectError([] { Path() / "a"; }, "Empty/invalid path.", "[Path::operator/]");
	expectError([] { Path("a") / Path(); }, "Other path argument is an empty/invalid path.", "[Path::operator/]");
	expectError([] { Path("a") / Path(std::string("b\0", 2)); }, "Other path argument is an empty/invalid path.", "[Path::operator/]");
}


TEST(ZEBPath, FileSystemQueries) {
	const std::filesystem::path dir = scratchDir();
	const std::filesystem::path file = dir / std::filesystem::u8path("Ärger.txt");
	std::ofstream(file) << "x";
	const Path dirPath(dir.u8string());

	EXPECT_TRUE(dirPath.exists());
	EXPECT_TRUE(dirPath.isDirectory());
	EXPECT_FALSE(dirPath.isFile());
	EXPECT_TRUE((dirPath / "Ärger.txt").exists());
	EXPECT_TRUE((dirPath / "Ärger.txt").isFile());
	EXPECT_FALSE((dirPath / "Ärger.txt").isDirectory());
	EXPECT_FALSE((dirPath / "missing").exists());
	EXPECT_FALSE((dirPath / "missing").isFile());
	EXPECT_FALSE((dirPath / "missing").isDirectory());
	// a relative path is looked up from the current directory
	{
		CurrentDirGuard guard(dir);
		EXPECT_TRUE(Path("Ärger.txt").isFile());
		EXPECT_TRUE(Path("./sub/../Ärger.txt").isFile());
	}
	expectError([] { Path().exists(); }, "Empty/invalid path.", "[Path::exists]");
	expectError([] { Path().isFile(); }, "Empty/invalid path.", "[Path::isFile]");
	expectError([] { Path().isDirectory(); }, "Empty/invalid path.", "[Path::isDirectory]");
}


TEST(ZEBPath, CurrentAndAbsolutePath) {
	EXPECT_EQ(Path::current(), Path(std::filesystem::current_path().string()));
	EXPECT_EQ(Path("x/../y").absolutePath(), Path(std::filesystem::current_path().string()) / "y");
	EXPECT_EQ(Path("/abs/x").absolutePath().str(), "/abs/x");
	expectError([] { Path().absolutePath(); }, "Empty/invalid path.", "[Path::absolutePath]");

	// the directory is certainly longer than four characters
	const std::size_t cwdLength = std::filesystem::current_path().string().size();
	ASSERT_GT(cwdLength, 4u);
	expectError([] { Path::current(4); }, "Path longer than 4 characters", "[current()]");
	EXPECT_EQ(Path::current(cwdLength), Path::current());
	expectError([&] { Path::current(cwdLength - 1); },
				"Path longer than " + std::to_string(cwdLength - 1) + " characters", "[current()]");

	// a current directory that was deleted cannot be read
	const std::filesystem::path gone = scratchDir() / "gone";
	std::filesystem::create_directories(gone);
	CurrentDirGuard guard(gone);
	std::filesystem::remove(gone);
	try {
		Path::current();
		ADD_FAILURE() << "reading a deleted current directory succeeded";
	}
	catch (ZEB::Exception & ex) {
		EXPECT_EQ(ex.messages().back().m_where, "[current()]");
	}
	expectError([] { Path("rel").absolutePath(); }, "Cannot create absolute path.", "[Path::absolutePath]");
	expectError([] { Path("rel").relativePath("/a"); }, "Cannot create absolute path.", "[Path::relativePath]");
	expectError([] { Path("/a").relativePath("rel"); }, "Cannot create absolute path.", "[Path::relativePath]");
	// absolute paths need no current directory
	EXPECT_EQ(Path("/a/b").relativePath("/a/c").str(), "../b");
}


TEST(ZEBPath, HomeDirectory) {
	{
		EnvGuard env("HOME", "/home/someone/");
		EXPECT_EQ(Path::home().str(), "/home/someone");
	}
	{
		// without HOME the account entry decides
		EnvGuard env("HOME", nullptr);
		const struct passwd * pw = getpwuid(getuid());
		if (pw != nullptr && pw->pw_dir != nullptr && *pw->pw_dir != 0)
			EXPECT_EQ(Path::home(), Path(pw->pw_dir));
		else
			expectError([] { Path::home(); }, "Couldn't deduce user directory.", "[Path::home]");
	}
}
