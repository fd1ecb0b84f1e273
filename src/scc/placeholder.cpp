namespace velk {
}
