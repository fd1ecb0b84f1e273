namespace velk {}
