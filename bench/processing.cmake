kronalys_bench(bench_processing LINK table)
target_include_directories(bench_processing PRIVATE ${PROJECT_SOURCE_DIR}/tests)
