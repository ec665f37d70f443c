kronalys_bench(bench_spectra LINK stats)
# The yardstick of the transforms; nothing else uses it.
find_library(FFTW fftw3)
find_path(FFTW_INCLUDE fftw3.h)
if(FFTW AND FFTW_INCLUDE)
    target_compile_definitions(bench_spectra PRIVATE WITH_FFTW)
    target_include_directories(bench_spectra SYSTEM PRIVATE ${FFTW_INCLUDE})
    target_link_libraries(bench_spectra PRIVATE ${FFTW})
endif()
