# Import chooser, progress dialog and the widget side of the three imports.
target_sources(quorvanta_widgets PRIVATE
  import/importdialog.ui
  import/importdialogclass.h
  import/importdialogclass.cpp
  import/progressdialog.ui
  import/progressdialogclass.h
  import/progressdialogclass.cpp
  import/progresssession.h
  import/progresssession.cpp
  import/widgetimporthost.h
  import/widgetimporthost.cpp
  import/importkind.h
  import/chartimport.cpp
  import/csvimportwidget.cpp
  import/logimportwidget.cpp
  import/visimportwidget.cpp)
