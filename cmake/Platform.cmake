# The closed host libraries under neutral names: dova::wiro, dova::toolkit, dova::model,
# dova::messaging and dova::host. "embedded" builds the stand-ins in platform/, "system" takes
# the site's own.
if(DOVA_PLATFORM STREQUAL "system")
  find_package(DovaPlatform REQUIRED)
elseif(DOVA_PLATFORM STREQUAL "embedded")
  add_subdirectory(platform)
else()
  message(FATAL_ERROR "DOVA_PLATFORM is \"${DOVA_PLATFORM}\"; it must be \"embedded\" or \"system\"")
endif()
