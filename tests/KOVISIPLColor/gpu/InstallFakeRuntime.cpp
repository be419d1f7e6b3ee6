#include "support/FakeCudaRuntime.h"

// Before any test asks for devices.
[[maybe_unused]] static const kovis::test::FakeCudaRuntime& g_fakeRuntime = kovis::test::FakeCudaRuntime::install();
