kronalys_bench(bench_graphs LINK plot)
target_include_directories(bench_graphs PRIVATE ${PROJECT_SOURCE_DIR}/tests)
