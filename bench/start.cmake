# Two programs that start, show their window and end, and the benchmark that runs them in turn.
foreach(program start_bare start_whole)
    add_executable(bench_${program} ${program}.cpp)
    target_link_libraries(bench_${program} PRIVATE kronalys_flags Qt5::Widgets)
endforeach()
target_link_libraries(bench_start_whole PRIVATE app)
kronalys_bench(bench_start LINK Qt5::Core)
add_dependencies(bench_start bench_start_bare bench_start_whole)
target_compile_definitions(bench_start PRIVATE
    BARE_PROGRAM="$<TARGET_FILE:bench_start_bare>" WHOLE_PROGRAM="$<TARGET_FILE:bench_start_whole>")
