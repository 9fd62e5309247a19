// The library's module entry and its conversions to the framework's types, compiled from the same sources that are
// compiled with the framework, against a stand-in that records the calls.

#include <afxwin.h>
#include <alidade/points.h>
#include <gtest/gtest.h>

#include <memory>

extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);

namespace recording_framework {

std::vector<Call> calls;
BOOL answer_to_init = 1;

// The framework owns the registration objects until their module is terminated.
std::vector<std::unique_ptr<CDynLinkLibrary>> registered;

}  // namespace recording_framework

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL /*system*/) {
  recording_framework::calls.push_back({"CDynLinkLibrary", &state, nullptr});
  recording_framework::registered.emplace_back(this);
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module) {
  recording_framework::calls.push_back({"AfxInitExtensionModule", &state, module});
  return recording_framework::answer_to_init;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL /*all*/) {
  recording_framework::calls.push_back({"AfxTermExtensionModule", &state, nullptr});
  recording_framework::registered.clear();
}

namespace {

using recording_framework::calls;

class ModuleEntry : public testing::Test {
protected:
  ModuleEntry() {
    calls.clear();
    recording_framework::registered.clear();
    recording_framework::answer_to_init = 1;
  }

  int enter(DWORD reason) { return DllMain(instance_, reason, nullptr); }

  char some_address_ = 0;
  HINSTANCE instance_ = reinterpret_cast<HINSTANCE>(&some_address_);
};

TEST_F(ModuleEntry, ProcessAttachInitialisesThenRegisters) {
  EXPECT_EQ(enter(DLL_PROCESS_ATTACH), 1);
  ASSERT_EQ(calls.size(), 2U);
  EXPECT_EQ(calls[0].name, "AfxInitExtensionModule");
  EXPECT_EQ(calls[0].module, instance_);
  EXPECT_EQ(calls[1].name, "CDynLinkLibrary");
  EXPECT_EQ(calls[1].state, calls[0].state);
  EXPECT_EQ(recording_framework::registered.size(), 1U);
}

TEST_F(ModuleEntry, ProcessDetachTerminates) {
  enter(DLL_PROCESS_ATTACH);
  EXPECT_EQ(enter(DLL_PROCESS_DETACH), 1);
  ASSERT_EQ(calls.size(), 3U);
  EXPECT_EQ(calls[2].name, "AfxTermExtensionModule");
  EXPECT_EQ(calls[2].state, calls[0].state);
}

TEST_F(ModuleEntry, ThreadsPassUnnoticed) {
  enter(DLL_PROCESS_ATTACH);
  calls.clear();
  EXPECT_EQ(enter(DLL_THREAD_ATTACH), 1);
  EXPECT_EQ(enter(DLL_THREAD_DETACH), 1);
  EXPECT_TRUE(calls.empty());
  EXPECT_EQ(recording_framework::registered.size(), 1U);
}

TEST_F(ModuleEntry, AFailedInitialisationRegistersNothingAndRefusesTheLoad) {
  recording_framework::answer_to_init = 0;
  EXPECT_EQ(enter(DLL_PROCESS_ATTACH), 0);
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].name, "AfxInitExtensionModule");
  EXPECT_TRUE(recording_framework::registered.empty());
}

TEST_F(ModuleEntry, ALifeInOrder) {
  for (DWORD reason : {DLL_PROCESS_ATTACH, DLL_THREAD_ATTACH, DLL_THREAD_DETACH, DLL_PROCESS_DETACH}) {
    EXPECT_EQ(enter(reason), 1);
  }
  std::vector<std::string> names;
  for (const recording_framework::Call& call : calls) {
    names.push_back(call.name);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"AfxInitExtensionModule", "CDynLinkLibrary", "AfxTermExtensionModule"}));
}

TEST(FrameworkTypes, PointsAndRectanglesConvertToAndFromThem) {
  const CPoint p = TAbstractPoint2<double>(2.9, -2.9);
  EXPECT_EQ(p.x, 2);
  EXPECT_EQ(p.y, -2);
  EXPECT_EQ(TAbstractPoint2<double>(CPoint(7, -8)), TAbstractPoint2<double>(7.0, -8.0));
  const CRect r = TAbstractRect<double>(1.9, -1.9, 2.5, -2.5);
  EXPECT_EQ(r.left, 1);
  EXPECT_EQ(r.top, -1);
  EXPECT_EQ(r.right, 2);
  EXPECT_EQ(r.bottom, -2);
  EXPECT_EQ(TAbstractRect<double>(CRect(1, 2, 3, 4)).Bottom(), 4.0);
}

}  // namespace
