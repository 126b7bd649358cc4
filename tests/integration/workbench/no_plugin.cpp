// A library without the entry point of a plug-in.
extern "C" __declspec(dllexport) int SomethingElse() {
  return 1;
}
