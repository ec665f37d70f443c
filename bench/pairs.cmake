kronalys_bench(bench_pairs LINK table_core)
target_include_directories(bench_pairs PRIVATE ${PROJECT_SOURCE_DIR}/tests)
