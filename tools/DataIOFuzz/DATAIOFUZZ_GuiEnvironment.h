#ifndef DATAIOFUZZ_GuiEnvironmentH
#define DATAIOFUZZ_GuiEnvironmentH

namespace DATAIOFUZZ {

/*! What the chart and session readers need from the process: an application object on the
	offscreen platform (fonts, colours and the chart widgets of mappers need one), and silence:
	neither Qt's messages nor those of the message handler are printed, which would slow the
	fuzzer down and bury its own output.
*/
class GuiEnvironment {
public:
	/*! Sets up the environment on the first call; it lives until the process ends. */
	static void start();
};

} // namespace DATAIOFUZZ

#endif // DATAIOFUZZ_GuiEnvironmentH
