# Strict settings for the project's own targets (not applied to third-party code).
function(qv_strict target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
  if(QV_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  target_compile_definitions(${target} PRIVATE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_USE_QSTRINGBUILDER
    QT_NO_FOREACH)
endfunction()
