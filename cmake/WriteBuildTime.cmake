# Run at build time: cmake -DINPUT=... -DOUTPUT=... -P WriteBuildTime.cmake
# string(TIMESTAMP) takes SOURCE_DATE_EPOCH if the environment has it.
string(TIMESTAMP FENNEL_BUILD_TIME "%s" UTC)
configure_file(${INPUT} ${OUTPUT} @ONLY)
