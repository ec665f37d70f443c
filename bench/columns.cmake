kronalys_bench(bench_columns LINK load_core)
