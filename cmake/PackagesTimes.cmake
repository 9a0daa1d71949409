# Run by cpack when the files of a package are in place. With SOURCE_DATE_EPOCH they all get this time, so that packages
# that are built at different times have the same bytes.
if (DEFINED ENV{SOURCE_DATE_EPOCH} AND UNIX)
    execute_process (
        COMMAND find "${CPACK_TEMPORARY_DIRECTORY}" -exec touch --no-dereference "--date=@$ENV{SOURCE_DATE_EPOCH}" {} +
        COMMAND_ERROR_IS_FATAL ANY)
endif()
